#pragma once

#include <functional>
#include <string>

#include "kit/Symbol.h"
#include "kit/View.h"
#include "views/theme/Palette.h"

namespace noonward {

/// A switch with its label before it; a press on either turns it.
kit::View labelledSwitch(const Palette& palette, kit::View label, bool isOn,
                         std::function<void(bool)> action);

/// A value in hours, "08:30", between two buttons that take half an hour off and put it on. `what`
/// names it to those who cannot see what stands around; `can` tells whether a step would do
/// something.
kit::View stepper(const Palette& palette, const std::string& what, double value,
                  const std::function<bool(double by)>& can,
                  const std::function<void(double by)>& action);

struct IconButton {
    kit::SymbolSource symbol;
    kit::Colour tint;
    kit::Colour cutOut = kit::clear;  ///< what is seen where a filled symbol is cut out
    double size = 13;                 ///< of the symbol's font
    std::string tip;
    std::string of;  ///< whose it is, for those who cannot see what stands around
    enum class State { enabled, disabled, sign } state = State::enabled;  ///< a sign is no button
    std::function<void()> action;
};

/// A symbol in a box of 26 points.
kit::View iconButton(const IconButton& button);

/// The ground that rows, fields and chips stand on.
kit::View chipGround(const Palette& palette, double radius);

}  // namespace noonward
