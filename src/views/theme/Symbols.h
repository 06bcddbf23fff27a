#pragma once

#include "kit/Symbol.h"

/// The drawings that stand for the interface's symbols.
namespace noonward::Symbols {

using kit::SymbolSource;

inline constexpr SymbolSource airplane{":/noonward/symbols/airplane.svg"};
inline constexpr SymbolSource calendarClock{":/noonward/symbols/calendar-dots.svg"};
inline constexpr SymbolSource calendarWarning{":/noonward/symbols/calendar-x.svg"};
inline constexpr SymbolSource chevronDown{":/noonward/symbols/caret-down.svg"};
inline constexpr SymbolSource chevronLeft{":/noonward/symbols/caret-left.svg"};
inline constexpr SymbolSource chevronRight{":/noonward/symbols/caret-right.svg"};
inline constexpr SymbolSource chevronUp{":/noonward/symbols/caret-up.svg"};
inline constexpr SymbolSource clock{":/noonward/symbols/clock.svg"};
inline constexpr SymbolSource clockFilled{":/noonward/symbols/clock-fill.svg"};
inline constexpr SymbolSource cross{":/noonward/symbols/x.svg"};
inline constexpr SymbolSource crossInCircle{":/noonward/symbols/x-circle-fill.svg"};
inline constexpr SymbolSource envelope{":/noonward/symbols/envelope-simple.svg"};
inline constexpr SymbolSource eyeSlash{":/noonward/symbols/eye-slash.svg"};
inline constexpr SymbolSource gear{":/noonward/symbols/gear-six.svg"};
inline constexpr SymbolSource halfCircle{":/noonward/symbols/circle-half.svg"};
inline constexpr SymbolSource hourglass{":/noonward/symbols/hourglass.svg"};
inline constexpr SymbolSource house{":/noonward/symbols/house.svg"};
inline constexpr SymbolSource houseFilled{":/noonward/symbols/house-fill.svg"};
inline constexpr SymbolSource magnifyingGlass{":/noonward/symbols/magnifying-glass.svg"};
inline constexpr SymbolSource map{":/noonward/symbols/map-trifold.svg"};
inline constexpr SymbolSource minusInCircle{":/noonward/symbols/minus-circle-fill.svg"};
inline constexpr SymbolSource moon{":/noonward/symbols/moon.svg"};
inline constexpr SymbolSource moonFilled{":/noonward/symbols/moon-fill.svg"};
inline constexpr SymbolSource people{":/noonward/symbols/users-three-fill.svg"};
inline constexpr SymbolSource plusInCircle{":/noonward/symbols/plus-circle-fill.svg"};
inline constexpr SymbolSource pointer{":/noonward/symbols/cursor-click.svg"};
inline constexpr SymbolSource star{":/noonward/symbols/star.svg"};
inline constexpr SymbolSource starFilled{":/noonward/symbols/star-fill.svg"};
inline constexpr SymbolSource strips{":/noonward/symbols/rows.svg"};
inline constexpr SymbolSource sun{":/noonward/symbols/sun.svg"};
inline constexpr SymbolSource update{":/noonward/symbols/arrow-circle-down-fill.svg"};

}  // namespace noonward::Symbols
