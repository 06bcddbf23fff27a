#include "app/PanelWindows.h"

#include <algorithm>
#include <utility>

#include "app/Notch.h"
#include "kit/Animation.h"
#include "model/Store.h"
#include "platform/Feedback.h"
#include "platform/MainQueue.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/Window.h"
#include "views/NotchUI.h"

namespace noonward {

using namespace std::chrono_literals;

namespace {

constexpr double screenMargin = 8;
constexpr double clickVolume = 0.25;

}  // namespace

PanelWindows::PanelWindows(const Services& services) : services_(services) {}

kit::Curve PanelWindows::opening() {
    return kit::spring(0.3, 0.58);
}

// ---- steps that may be overtaken ----

// A step of a course does nothing once the course has turned.
std::function<void()> PanelWindows::onCourse(const Course& course,
                                             std::function<void()> step) const {
    return lifetime_.weakly([&course, turns = course.turns, step = std::move(step)] {
        if (course.turns == turns) step();
    });
}

void PanelWindows::next(const Course& course, std::function<void()> step) {
    services_.queue.post(onCourse(course, std::move(step)));
}

void PanelWindows::later(std::chrono::milliseconds delay, const Course& course,
                         std::function<void()> step) {
    services_.queue.after(delay, onCourse(course, std::move(step)));
}

// ---- the notch ----

void PanelWindows::findNotch() {
    const Screens& screens = services_.screens;
    if (const auto found =
            noonward::findNotch(screens.all(), screens.main(), screens.statusBarThickness())) {
        notch_ = found->rect;
        overOwnClock_ = screens.hasOwnClock();
        screen_ = found->screen;
    }
    services_.ui.notchWidth = notch_.width();
    services_.ui.height = notch_.height();
    if (notchCourse_.open) placeCap();
    notchFound_.announce();
}

bool PanelWindows::pointerNear() const {
    return holds(stayZone(services_.cap.frame()), services_.pointer.position());
}

void PanelWindows::expand() {
    if (notchCourse_.open) return;
    notchCourse_.turn(true);
    placeCap();
    services_.cap.orderFront();
    next(notchCourse_, [this] { openOut(); });
}

void PanelWindows::placeCap() {
    const double width = services_.ui.windowWidth();
    services_.cap.setFrame({notch_.center().x() - width / 2, notch_.top(), width, notch_.height()});
}

void PanelWindows::openOut() {
    services_.feedback.levelChange();
    if (services_.store.config().clickSound) {
        // The first sound finds its way to the sound card first: the picture goes before it.
        services_.queue.post(lifetime_.weakly([this] { services_.feedback.click(clickVolume); }));
    }
    services_.animations.withAnimation(opening(), [this] { services_.ui.expanded = true; });
    later(90ms, notchCourse_, [this] {
        services_.animations.withAnimation(kit::spring(0.26, 0.5),
                                           [this] { services_.ui.showTimes = true; });
    });
}

void PanelWindows::collapse() {
    if (!services_.ui.expanded() || !notchCourse_.open || panelCourse_.open) return;
    notchCourse_.turn(false);
    services_.animations.withAnimation(kit::easeIn(0.1),
                                       [this] { services_.ui.showTimes = false; });
    later(70ms, notchCourse_, [this] {
        services_.animations.withAnimation(kit::spring(0.3, 0.86),
                                           [this] { services_.ui.expanded = false; });
    });
    later(500ms, notchCourse_, [this] { services_.cap.orderOut(); });
}

// ---- the panel ----

void PanelWindows::layoutPanel() {
    if (!screen_) return;
    const QSizeF size = services_.panel.fittingSize();
    const double x = std::max(screen_->left() + screenMargin,
                              std::min(screen_->right() - size.width() - screenMargin,
                                       notch_.center().x() - size.width() / 2));
    services_.panel.setFrame({QPointF(x, screen_->top() + notch_.height()), size});
}

void PanelWindows::openPanel(Content content) {
    if (content == Content::settings) services_.ui.settingsShown = true;
    if (panelCourse_.open) return;
    panelCourse_.turn(true);
    expand();
    services_.store.reload();
    services_.store.backToNow();
    services_.store.flash = std::nullopt;
    layoutPanel();
    services_.panel.orderFront();
    services_.panel.makeKey();
    next(panelCourse_, [this] {
        services_.animations.withAnimation(kit::spring(0.4, 0.8),
                                           [this] { services_.ui.panelShown = true; });
    });
}

void PanelWindows::closePanel() {
    if (!panelCourse_.open) return;
    panelCourse_.turn(false);
    services_.animations.withAnimation(kit::easeIn(0.14),
                                       [this] { services_.ui.panelShown = false; });
    later(160ms, panelCourse_, [this] { putAway(); });
}

void PanelWindows::putAway() {
    services_.panel.orderOut();
    services_.ui.settingsShown = false;
    if (services_.ui.welcomeShown()) {
        services_.ui.welcomeShown = false;
        services_.store.markWelcomed();
    }
    services_.store.backToNow();
    if (!pointerNear()) collapse();
}

void PanelWindows::togglePanel() {
    if (panelCourse_.open) {
        closePanel();
    } else {
        openPanel();
    }
}

void PanelWindows::welcomeSoon() {
    services_.queue.after(1000ms, lifetime_.weakly([this] {
        services_.ui.welcomeShown = true;
        openPanel();
    }));
}

}  // namespace noonward
