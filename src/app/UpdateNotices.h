#pragma once

#include <string>

namespace noonward {

class NotchUI;
class PanelWindows;
class Updater;

/// The program's side of updates: one that a scheduled check has found is not announced by a window
/// but by a symbol beside the notch, until the user has seen it. Main thread only.
class UpdateNotices {
 public:
    /// `updater` is null where none is installed.
    UpdateNotices(NotchUI& ui, PanelWindows& windows, Updater* updater);

    /// Makes room for the updater's own windows and has it look for an update now.
    void check();

    // What an updater asks and tells.
    static constexpr bool takesPartInGentleReminders = true;
    /// Whether the updater shows a scheduled update by itself.
    static bool updaterShowsScheduled(bool inImmediateFocus) { return inImmediateFocus; }
    struct Showing {
        bool byUpdater = false;
        bool askedByUser = false;
        std::string version;  ///< as shown to the user
    };
    void willShow(const Showing& update);
    void userHasSeen();      ///< the user has turned to the update
    void sessionIsEnding();  ///< installed, skipped or dismissed

 private:
    NotchUI& ui_;
    PanelWindows& windows_;
    Updater* updater_;
};

}  // namespace noonward
