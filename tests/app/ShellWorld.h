#pragma once

#include <QRectF>
#include <chrono>
#include <functional>

#include "app/Hover.h"
#include "app/PanelWindows.h"
#include "fakes/FakeFeedback.h"
#include "fakes/FakeMainQueue.h"
#include "fakes/FakePointer.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeWindow.h"
#include "fakes/StoreWorld.h"
#include "kit/Animation.h"
#include "views/NotchUI.h"

namespace noonward::test {

using std::chrono::milliseconds;

/// A desktop without a notch, 1920 × 1080, at half past nine, with the shell's windows at work. The
/// place of the notch is 184 × 24 points from (868, 0); opened out it begins at 769.
struct ShellWorld {
    explicit ShellWorld(const Config& config = threePlaces())
        : planner("Europe/London", "2026-03-18 09:30", config) {
        screens.screens = {{.frame = {0, 0, 1920, 1080}}};
        panel.fitting = {1196, 400};
        windows.findNotch();
    }

    void advance(int time) { queue.advance(milliseconds(time)); }
    void turn() { queue.turn(); }

    /// Opens the panel and waits until all has come to rest.
    void open(PanelWindows::Content content = PanelWindows::Content::asItIs) {
        windows.openPanel(content);
        advance(1000);
    }

    StoreWorld planner;
    FakeMainQueue queue;
    FakeWindow cap;
    FakeWindow panel;
    FakeScreens screens;
    FakePointer pointer{queue};
    FakeFeedback feedback;
    kit::Animations animations;
    Store store{planner.services()};
    NotchUI ui;
    PanelWindows windows{{.cap = cap,
                          .panel = panel,
                          .store = store,
                          .ui = ui,
                          .animations = animations,
                          .queue = queue,
                          .screens = screens,
                          .pointer = pointer,
                          .feedback = feedback}};
};

constexpr QPointF onNotch{960, 10};
constexpr QPointF elsewhere{300, 600};

}  // namespace noonward::test
