#pragma once

#include <memory>

#include "kit/View.h"
#include "views/theme/Palette.h"

namespace noonward {

class SettingsState;

/// The field in which a city is looked for, and what is found.
kit::View citySearch(const std::shared_ptr<SettingsState>& state, const Palette& palette);

}  // namespace noonward
