#include "app/UpdateNotices.h"

#include "app/PanelWindows.h"
#include "views/NotchUI.h"

namespace noonward {

UpdateNotices::UpdateNotices(NotchUI& ui, PanelWindows& windows, Updater* updater)
    : ui_(ui), windows_(windows), updater_(updater) {
    if (updater_) updater_->start(*this);
}

void UpdateNotices::check() {
    windows_.closePanel();
    if (updater_) updater_->checkForUpdates();
}

void UpdateNotices::willShow(const Showing& update) {
    if (!update.byUpdater && !update.askedByUser) ui_.updateReady = update.version;
}

void UpdateNotices::userHasSeen() {
    ui_.updateReady = std::nullopt;
}

void UpdateNotices::sessionIsEnding() {
    ui_.updateReady = std::nullopt;
}

}  // namespace noonward
