#pragma once

#include <functional>
#include <optional>

#include "kit/View.h"
#include "reference/Geocoder.h"
#include "views/ribbon/RibbonPanel.h"
#include "views/settings/SettingsView.h"
#include "views/welcome/WelcomeView.h"

namespace noonward {

class LoginItem;

/// What the panel's window shows: the welcome, the settings or the ribbon. It grows down out of the
/// notch as the panel is shown, and shrinks back into it.
class PanelHost {
 public:
    /// The settings find places with `geocoder` and show and set `loginItem`. All must outlive it.
    PanelHost(Store& store, NotchUI& ui, Geocoder& geocoder, LoginItem& loginItem,
              std::function<void()> onCopyInvite);

    kit::View body(Scheme scheme, Backing backing) const;

    /// Announces when a view in it has something else to show by itself.
    Announcer& changes() { return ribbon_.changes(); }

 private:
    kit::View content(Scheme scheme, Backing backing) const;

    Store& store_;
    NotchUI& ui_;
    Geocoder& geocoder_;
    LoginItem& loginItem_;
    WelcomeView welcome_;
    mutable std::optional<SettingsView> settings_;  // of the latest showing
    mutable unsigned settingsShowing_ = 0;          // which of them that is
    unsigned showing_ = 0;
    RibbonPanel ribbon_;
    Subscription showings_;
};

}  // namespace noonward
