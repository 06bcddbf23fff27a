#pragma once

#include <functional>
#include <string>

#include "kit/Interaction.h"
#include "kit/View.h"
#include "views/theme/Palette.h"

namespace noonward {

/// A small button with rounded ends; a strong one stands out.
kit::View pill(const Palette& palette, const std::string& title, bool strong,
               std::function<void()> action, kit::PressKeys keys = kit::PressKeys::none);

}  // namespace noonward
