#include "views/settings/SettingsControls.h"

#include <cmath>
#include <cstdio>
#include <utility>

#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double dimmed = 0.3;  // the opacity of what cannot be pressed

View switchPicture(const Palette& palette, bool isOn) {
    return circle()
        .fill(white)
        .frame({.width = 12, .height = 12})
        .padding({.horizontal = 1.5})
        .frame({.width = 26, .height = 15, .alignment = isOn ? trailing : leading})
        .background(capsule().fill(isOn ? palette.button : palette.chipBorder));
}

std::string clockText(double hours) {
    const int minutes = static_cast<int>(std::lround(hours * 60));
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d", minutes / 60, minutes % 60);
    return text;
}

View stepButton(const Palette& palette, const char* sign, const std::string& tip, bool possible,
                std::function<void()> action) {
    const View face = text(sign)
                          .font(hanken(14, Weight::semibold))
                          .opacity(possible ? 1 : dimmed)
                          .frame({.width = 26, .height = 26})
                          .background(chipGround(palette, 8))
                          .tooltip(tip)
                          .described({.role = Role::button, .name = tip});
    return possible ? face.button(std::move(action), PressKeys::space) : face.disabledButton();
}

}  // namespace

View labelledSwitch(const Palette& palette, View label, bool isOn,
                    std::function<void(bool)> action) {
    return hstack({.spacing = 8}, {std::move(label), switchPicture(palette, isOn)})
        .toggle(isOn, [isOn, action = std::move(action)] { action(!isOn); });
}

View stepper(const Palette& palette, const std::string& what, double value,
             const std::function<bool(double by)>& can,
             const std::function<void(double by)>& action) {
    return hstack({.spacing = 4},
                  {
                      stepButton(palette, "−", what + ": half an hour earlier", can(-0.5),
                                 [action] { action(-0.5); }),
                      text(clockText(value)).font(hanken(14)).frame({.minWidth = 50}),
                      stepButton(palette, "+", what + ": half an hour later", can(0.5),
                                 [action] { action(0.5); }),
                  });
}

View iconButton(const IconButton& button) {
    using State = IconButton::State;
    const View face =
        symbol(button.symbol)
            .font(systemFont(button.size))
            .colour(button.tint)
            .background(rectangle()
                            .fill(button.cutOut)
                            .frame({.width = button.size / 2, .height = button.size / 4}))
            .opacity(button.state == State::disabled ? dimmed : 1)
            .frame({.width = 26, .height = 26})
            .tooltip(button.tip)
            .described({.role = button.state == State::sign ? Role::text : Role::button,
                        .name = button.tip + ", " + button.of});
    if (button.state == State::sign) return form(0, face);
    return form(1, button.state == State::enabled ? face.button(button.action, PressKeys::space)
                                                  : face.disabledButton());
}

View chipGround(const Palette& palette, double radius) {
    return roundedRectangle(radius).fill(palette.chip).strokeInside(palette.chipBorder, 1);
}

}  // namespace noonward
