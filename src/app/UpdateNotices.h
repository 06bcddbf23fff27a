#pragma once

#include "platform/Updater.h"

namespace noonward {

class NotchUI;
class PanelWindows;

/// The program's side of updates: one that a scheduled check has found is not announced by a window
/// but by a symbol beside the notch, until the user has seen it.
class UpdateNotices final : public UpdateListener {
 public:
    /// Starts the updater, which is null where none is installed.
    UpdateNotices(NotchUI& ui, PanelWindows& windows, Updater* updater);

    /// Makes room for the updater's own windows and has it look for an update now.
    void check();

    bool takesPartInGentleReminders() const override { return true; }
    bool updaterShowsScheduled(bool inImmediateFocus) const override { return inImmediateFocus; }
    void willShow(const Showing& update) override;
    void userHasSeen() override;
    void sessionIsEnding() override;

 private:
    NotchUI& ui_;
    PanelWindows& windows_;
    Updater* updater_;
};

}  // namespace noonward
