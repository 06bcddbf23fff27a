#pragma once

#include <memory>

#include "kit/View.h"
#include "views/theme/Palette.h"

namespace noonward {

class SettingsState;

/// The places, each with its name and what can be done to it; below the one being edited its week.
kit::View placeList(const std::shared_ptr<SettingsState>& state, const Palette& palette);

}  // namespace noonward
