#pragma once

#include <functional>
#include <optional>

#include "kit/View.h"
#include "views/ribbon/RibbonPanel.h"
#include "views/settings/SettingsView.h"
#include "views/welcome/WelcomeView.h"

namespace noonward {

/// What the panel's window shows: the welcome, the settings or the ribbon. It grows down out of the
/// notch as the panel is shown, and shrinks back into it.
class PanelHost {
 public:
    /// All must outlive it.
    PanelHost(Store& store, NotchUI& ui, const SettingsView::Services& services,
              std::function<void()> onCopyInvite);

    kit::View body(Scheme scheme, Backing backing) const;

    /// Announces when a view in it has something else to show by itself.
    Announcer& changes() { return changes_; }

 private:
    kit::View content(Scheme scheme, Backing backing) const;

    Announcer changes_;
    Store& store_;
    NotchUI& ui_;
    SettingsView::Services services_;
    WelcomeView welcome_;
    mutable std::optional<SettingsView> settings_;  // of this showing
    unsigned showing_ = 0;                          // which of them it is
    RibbonPanel ribbon_;
    Subscription showings_;
    Subscription ribbonWatch_;
    mutable Subscription settingsWatch_;
};

}  // namespace noonward
