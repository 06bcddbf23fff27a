#include "views/theme/Palette.h"

#include "views/theme/Velmora.h"

namespace noonward {

using kit::Colour;
using kit::white;

constinit const Palette Palette::dark{
    .tint = Colour::rgb(0x081E32),
    .tintOpacity = 0.74,
    .material = Material::hudWindow,
    .text = white,
    .mist = Colour::rgb(0xC3D0DC),
    .work = Velmora::teal.opacity(0.62),
    .workText = white,
    .awake = white.opacity(0.13),
    .awakeText = white,
    .asleep = white.opacity(0.04),
    .asleepText = Colour::rgb(0x8EA2B5),
    .selected = Velmora::red.opacity(0.92),
    .off = Velmora::orange.opacity(0.24),
    .offText = Colour::rgb(0xFFC9A8),
    .now = Velmora::orange,
    .fair = Colour::rgb(0x3EC5E4),
    .homeTime = Velmora::orange,
    .proposed = Colour::rgb(0xF0707A),
    .border = white.opacity(0.2),
    .chip = white.opacity(0.1),
    .chipBorder = white.opacity(0.18),
    .button = Velmora::teal.opacity(0.7),
};

constinit const Palette Palette::light{
    .tint = Colour::rgb(0xF5F8FB),
    .tintOpacity = 0.72,
    .material = Material::popover,
    .text = Colour::rgb(0x182B49),
    .mist = Colour::rgb(0x5A6270),
    .work = Colour::rgb(0x007C97),
    .workText = white,
    .awake = Velmora::navy.opacity(0.08),
    .awakeText = Colour::rgb(0x182B49),
    .asleep = Velmora::navy.opacity(0.03),
    .asleepText = Colour::rgb(0x8A93A3),
    .selected = Velmora::red,
    .off = Velmora::orange.opacity(0.16),
    .offText = Colour::rgb(0xB4471A),
    .now = Velmora::orange,
    .fair = Velmora::teal,
    .homeTime = Colour::rgb(0xD9531E),
    .proposed = Velmora::red,
    .border = Velmora::navy.opacity(0.14),
    .chip = Velmora::navy.opacity(0.05),
    .chipBorder = Velmora::navy.opacity(0.12),
    .button = Colour::rgb(0x007C97),
};

const Palette& Palette::of(Scheme scheme) {
    return scheme == Scheme::dark ? dark : light;
}

}  // namespace noonward
