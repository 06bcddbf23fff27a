#include "app/Hover.h"

#include <chrono>

#include "app/Notch.h"
#include "app/PanelWindows.h"
#include "model/RepeatingTimer.h"
#include "platform/Pointer.h"
#include "views/NotchUI.h"

namespace noonward {
namespace {

constexpr std::chrono::milliseconds interval(40);
constexpr int ticksToExpand = 3;
constexpr int ticksToCollapse = 8;

}  // namespace

Hover::Hover(PanelWindows& windows, NotchUI& ui, Pointer& pointer, RepeatingTimer& timer)
    : windows_(windows), ui_(ui), pointer_(pointer), timer_(timer), stage_(stageNow()) {
    watches_ = {ui_.changes().subscribe([this] { follow(); }),
                windows_.notchFound().subscribe([this] {
                    if (stage_ == Stage::folded && !ticks_) waitAtTheNotch();
                })};
    if (!windows_.notch().isEmpty()) waitAtTheNotch();
}

Hover::~Hover() {
    pointer_.stopWaiting();
}

Hover::Stage Hover::stageNow() const {
    if (ui_.panelShown()) return Stage::panel;
    return ui_.expanded() ? Stage::expanded : Stage::folded;
}

void Hover::follow() {
    if (stageNow() == stage_) return;
    stage_ = stageNow();
    dwell_ = 0;
    away_ = 0;
    if (stage_ == Stage::panel) {
        ticks_.reset();
        pointer_.stopWaiting();
    } else {
        watch();  // folded again, the first tick tells whether the pointer is still there
    }
}

void Hover::watch() {
    if (ticks_) return;
    pointer_.stopWaiting();
    ticks_ = timer_.every(interval, [this] { tick(); });
}

void Hover::waitAtTheNotch() {
    ticks_.reset();
    dwell_ = 0;
    pointer_.waitFor(windows_.hoverZone(), lifetime_.weakly([this] { watch(); }));
}

void Hover::tick() {
    if (stage_ == Stage::expanded) {
        tickExpanded();
    } else {
        tickFolded();
    }
}

void Hover::tickExpanded() {
    if (windows_.pointerNear()) {
        away_ = 0;
    } else if (++away_ >= ticksToCollapse) {
        away_ = 0;
        windows_.collapse();
    }
}

void Hover::tickFolded() {
    if (!holds(windows_.hoverZone(), pointer_.position())) {
        waitAtTheNotch();
    } else if (++dwell_ >= ticksToExpand) {
        dwell_ = 0;
        windows_.expand();
    }
}

}  // namespace noonward
