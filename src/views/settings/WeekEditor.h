#pragma once

#include <memory>
#include <string>

#include "kit/View.h"
#include "model/PlaceIdentities.h"
#include "model/Row.h"
#include "views/theme/Palette.h"

namespace noonward {

class SettingsState;

/// A place's working hours and days, public holidays and days off, to be changed.
kit::View weekEditor(const std::shared_ptr<SettingsState>& state, const Palette& palette,
                     PlaceIdentity place, const Row& row);

/// "Mon 3 Feb" for "2025-02-03"; what is no day is shown as it stands.
std::string shortDate(const std::string& key);

}  // namespace noonward
