#pragma once

#include "app/Demonstration.h"
#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/settings/SettingsView.h"

namespace noonward {

/// Renders the pictures a demonstration asks for, from a store that saves and downloads nothing.
/// What cannot be written is left out without a word.
void takeSnapshots(const Demonstration& demonstration, Store& store, NotchUI& ui,
                   const SystemZone& zone, const SettingsView::Services& services);

}  // namespace noonward
