#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Published.h"
#include "kit/View.h"
#include "views/settings/SettingsState.h"
#include "views/theme/PanelChrome.h"

namespace noonward {

/// The places and the looks of the program, to be changed. Each one shown is a new one.
class SettingsView {
 public:
    using Services = SettingsState::Services;
    struct Options {
        std::string query = {};                     ///< what the search field holds at first
        std::optional<int> editing = std::nullopt;  ///< index of the place whose week is open
    };

    /// All but the options must outlive the view.
    SettingsView(Store& store, NotchUI& ui, const Services& services, const Options& options);

    kit::View body(Scheme scheme, Backing backing = Backing::opaque) const;

    /// Announces when it has something else to show by itself.
    Announcer& changes() { return state_->changes(); }

 private:
    std::shared_ptr<SettingsState> state_;
};

}  // namespace noonward
