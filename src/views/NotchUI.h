#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/Published.h"

namespace noonward {

/// The state of the windows and of the notch, beside the planning state of Store: one instance,
/// handed to every view. The shell changes it and installs the callbacks. Main thread only.
class NotchUI {
 private:
    Announcer changes_;

 public:
    static constexpr double ear = 92;  ///< width of a clock beside the notch, points
    static constexpr double shoulder =
        7;  ///< width of the flare between menu bar and notch, points

    Published<bool> expanded{changes_, false};    ///< the notch is opened out
    Published<bool> showTimes{changes_, false};   ///< the clocks in the ears are visible
    Published<bool> panelShown{changes_, false};  ///< the panel below the notch is shown
    Published<bool> settingsShown{changes_, false};
    Published<bool> welcomeShown{changes_, false};  ///< goes before `settingsShown`
    /// Describes an update that is ready; absent without one.
    Published<std::optional<std::string>> updateReady{changes_};

    std::string version;      ///< of the program, "1.2.0"; empty where it is not known
    double notchWidth = 185;  ///< points; set when the notch is found
    double height = 32;       ///< points

    std::function<void()> onTap = [] {};
    std::function<void()> onSettings = [] {};
    std::function<void()> onUpdates = [] {};
    std::function<void()> onQuit = [] {};

    /// Width of the notch window when it is opened out, points.
    double windowWidth() const { return notchWidth + 2 * ear + 2 * shoulder; }

    Announcer& changes() { return changes_; }
};

}  // namespace noonward
