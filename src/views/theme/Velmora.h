#pragma once

#include <array>

#include "kit/Colour.h"

/// The brand colours.
namespace noonward::Velmora {

inline constexpr kit::Colour navy = kit::Colour::rgb(0x004165);
inline constexpr kit::Colour teal = kit::Colour::rgb(0x0094B3);
inline constexpr kit::Colour red = kit::Colour::rgb(0xAA272F);
inline constexpr kit::Colour orange = kit::Colour::rgb(0xFF6D22);
inline constexpr kit::Colour grey = kit::Colour::rgb(0x636467);
inline constexpr kit::Colour mist = kit::Colour::rgb(0xC3D0DC);

/// The stripe along the top of every panel.
inline constexpr std::array ribbon{navy, teal, red, orange, grey};

}  // namespace noonward::Velmora
