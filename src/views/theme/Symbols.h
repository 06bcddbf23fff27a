#pragma once

#include "kit/Symbol.h"

/// The drawings that stand for the interface's symbols.
namespace noonward::Symbols {

using kit::SymbolSource;

inline constexpr SymbolSource airplane{":/noonward/symbols/airplane.svg"};
inline constexpr SymbolSource calendarWarning{":/noonward/symbols/calendar-x.svg"};
inline constexpr SymbolSource chevronLeft{":/noonward/symbols/caret-left.svg"};
inline constexpr SymbolSource chevronRight{":/noonward/symbols/caret-right.svg"};
inline constexpr SymbolSource clock{":/noonward/symbols/clock.svg"};
inline constexpr SymbolSource clockFilled{":/noonward/symbols/clock-fill.svg"};
inline constexpr SymbolSource crossInCircle{":/noonward/symbols/x-circle-fill.svg"};
inline constexpr SymbolSource envelope{":/noonward/symbols/envelope-simple.svg"};
inline constexpr SymbolSource eyeSlash{":/noonward/symbols/eye-slash.svg"};
inline constexpr SymbolSource gear{":/noonward/symbols/gear-six.svg"};
inline constexpr SymbolSource moonFilled{":/noonward/symbols/moon-fill.svg"};
inline constexpr SymbolSource people{":/noonward/symbols/users-three-fill.svg"};
inline constexpr SymbolSource update{":/noonward/symbols/arrow-circle-down-fill.svg"};

}  // namespace noonward::Symbols
