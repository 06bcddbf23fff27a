#include "views/theme/Pill.h"

#include <utility>

#include "kit/Shapes.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

View pill(const Palette& palette, const std::string& title, bool strong,
          std::function<void()> action, PressKeys keys) {
    const Shape shape = strong ? capsule().fill(palette.button)
                               : capsule().fill(palette.chip).strokeInside(palette.chipBorder, 1);
    return text(title)
        .font(hanken(12, Weight::semibold))
        .colour(strong ? white : palette.text)
        .padding({.horizontal = 10, .vertical = 4})
        .background(shape)
        .button(std::move(action), keys);
}

}  // namespace noonward
