#pragma once

#include <QObject>
#include <vector>

#include "app/Copying.h"
#include "app/GridMouse.h"
#include "app/Hotkey.h"
#include "app/Hover.h"
#include "app/KeyPanel.h"
#include "app/KeyRouting.h"
#include "app/PanelHost.h"
#include "app/PanelWindows.h"
#include "app/Planner.h"
#include "app/UpdateNotices.h"
#include "kit/Animation.h"
#include "platform/Desktop.h"
#include "views/notch/NotchView.h"

namespace noonward {

/// Brings the model, the views and the desktop together: the members, in order, are what starts.
/// From then on everything is driven by events, on the main thread.
class AppDelegate final : public QObject {
 public:
    /// Shows nothing yet, except on a first run the welcome a moment later. All must outlive it.
    AppDelegate(Planner& planner, Geocoder& geocoder, const Desktop& desktop);

    /// What a click on the notch does: opens the panel on the ribbon, or closes it.
    void togglePanel() { windows_.togglePanel(); }

 private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool keyMonitor(QEvent& event);
    bool mouseMonitor(QEvent& event);

    Scheme scheme() const;
    void firstRun();
    void wireCallbacks();
    void watchModel();
    void watchDesktop();
    void layoutSoon();
    void terminate();
    void redraw();
    void dress();

    Store& store_;
    NotchUI& ui_;
    Desktop desktop_;
    kit::Animations animations_;
    Copying copying_;
    NotchView notchView_;
    PanelHost panelHost_;
    Backing backing_ = Backing::square;
    KeyPanel cap_;
    KeyPanel panel_;
    PanelWindows windows_;
    UpdateNotices updates_;
    std::vector<Subscription> watches_;
    Subscription pressWatch_;  // while the panel is shown
    KeyRouting keys_;
    GridMouse grid_;
    Hotkey hotkey_;
    Hover hover_;
    std::optional<Scheme> dressed_;  // in which the toolkit's own windows are
    bool layoutPending_ = false;
    Lifetime lifetime_;
};

}  // namespace noonward
