#include "platform/x11/X11Focus.h"

#include <QApplication>
#include <QMetaObject>
#include <QTimer>
#include <chrono>

namespace noonward {
namespace {

using namespace std::chrono_literals;

// A Wayland compositor gives its X windows the keyboard in its own time, and would take it back
// from whoever was faster.
constexpr auto compositorsTime = 80ms;

// Some take the keyboard back at once from whoever they did not give it to: no user is so fast.
constexpr auto usersTime = 250ms;

// Where the focus follows the pointer, it leaves at each window that is crossed.
constexpr int mostReclaims = 16;

constexpr int deepest = 64;  // windows within windows

xcb_window_t idOf(const QWidget& window) {
    return static_cast<xcb_window_t>(window.internalWinId());
}

bool isWindow(xcb_window_t focus) {
    return focus != XCB_INPUT_FOCUS_NONE && focus != XCB_INPUT_FOCUS_POINTER_ROOT;
}

// Whether the keyboard itself has moved: grabs and the pointer make such notices as well.
bool isRealMove(const xcb_focus_in_event_t& event) {
    return event.mode != XCB_NOTIFY_MODE_GRAB && event.mode != XCB_NOTIFY_MODE_UNGRAB &&
           event.detail != XCB_NOTIFY_DETAIL_POINTER && event.detail != XCB_NOTIFY_DETAIL_INFERIOR;
}

}  // namespace

X11Focus::X11Focus(X11& x11, X11PressesElsewhere& presses)
    : x11_(x11), presses_(presses), motion_(x11) {}

void X11Focus::take(QWidget& window) {
    const xcb_window_t holder = focused();
    pressed_ = false;
    reclaimsLeft_ = mostReclaims;
    if (window_ == &window && holder == idOf(window)) return;
    if (!isWindow(holder) || !x11_.isOurs(holder)) before_ = holder;
    window_ = &window;
    claimed_.start();
    pressWatch_ = presses_.onPress([this] { pressed_ = true; });
    events_ = x11_.onEvent(
        [this](const xcb_generic_event_t& event, std::uint8_t type) { watch(event, type); });
    if (x11_.insideWayland())
        QTimer::singleShot(compositorsTime, Qt::PreciseTimer, &context_, [this] { claim(); });
    else
        claim();
}

void X11Focus::giveBack(QWidget& window) {
    if (window_ != &window) return;
    const bool hasKeys = focused() == idOf(window);
    const xcb_window_t receiver = std::exchange(before_, XCB_WINDOW_NONE);
    window_ = nullptr;
    awaitsMap_ = false;
    motion_.stop();
    events_.reset();
    pressWatch_.reset();
    if (!hasKeys || !isWindow(receiver)) return;
    // It may be gone by now: then the focus goes where the server lets it fall.
    x11_.ignoreError(xcb_set_input_focus_checked(x11_.connection(), XCB_INPUT_FOCUS_PARENT,
                                                 receiver, XCB_CURRENT_TIME));
    xcb_flush(x11_.connection());
}

void X11Focus::claim() {
    if (!window_) return;
    awaitsMap_ = false;
    claimed_.start();
    motion_.watch();
    if (!set(x11_.lastTime())) return;
    // The server takes no notice of a request older than the focus itself. Ours may well be: what
    // it answers need not have come as an event.
    if (focused() != idOf(*window_)) set(XCB_CURRENT_TIME);
}

/// Whether the window could have the focus; if not yet, it is claimed again when it is mapped.
bool X11Focus::set(xcb_timestamp_t time) {
    const auto cookie = xcb_set_input_focus_checked(x11_.connection(), XCB_INPUT_FOCUS_PARENT,
                                                    idOf(*window_), time);
    const Reply<xcb_generic_error_t> error(xcb_request_check(x11_.connection(), cookie));
    awaitsMap_ = error != nullptr;
    return !awaitsMap_;
}

void X11Focus::watch(const xcb_generic_event_t& event, std::uint8_t type) {
    if (!window_) return;
    const auto later = [this](void (X11Focus::*step)()) {
        QMetaObject::invokeMethod(
            &context_, [this, step] { (this->*step)(); }, Qt::QueuedConnection);
    };
    if (type == XCB_MAP_NOTIFY) {
        if (awaitsMap_ && as<xcb_map_notify_event_t>(event).window == idOf(*window_))
            later(&X11Focus::claim);
    } else if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
        const auto& move = as<xcb_focus_in_event_t>(event);
        if (move.event != idOf(*window_) || !isRealMove(move)) return;
        if (type == XCB_FOCUS_IN) return later(&X11Focus::activate);
        // A press that took the keys away comes before this, but what it was may come after.
        presses_.whenDecided([this, alive = QPointer<QObject>(&context_)] {
            if (alive) lose();
        });
    }
}

/// Qt learns from the same event that the window has the keys; but when the window was hidden and
/// shown in quick succession it takes the news for old.
void X11Focus::activate() {
    if (!window_ || window_->isActiveWindow() || focused() != idOf(*window_)) return;
    QApplication::setActiveWindow(window_);
}

/// The keys have left, unless it is for another window of ours. Inside a Wayland compositor nothing
/// else tells of what the user does elsewhere.
void X11Focus::lose() {
    if (!window_ || pressed_) return;
    const xcb_window_t holder = focused();
    if (isWindow(holder) && x11_.isOurs(holder)) return;
    if (!x11_.insideWayland())
        reclaim(holder);
    else if (claimed_.hasExpired(std::chrono::milliseconds(usersTime).count()))
        presses_.keysLeft();
}

/// If the keys followed the pointer, which the user moved for other reasons, they are fetched; if
/// the user pressed or chose something elsewhere, they are not.
void X11Focus::reclaim(xcb_window_t holder) {
    if (reclaimsLeft_ == 0 || !motion_.hasMoved()) return;
    const auto cookie = xcb_query_pointer(x11_.connection(), x11_.root());
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(x11_.connection(), cookie, nullptr));
    if (!pointer) return;
    const bool hasFollowed = pointer->child == XCB_WINDOW_NONE || !isWindow(holder) ||
                             topLevelOf(holder) == pointer->child;
    if (!hasFollowed) return;
    --reclaimsLeft_;
    if (isWindow(holder)) before_ = holder;  // who would have the keys by now, but for us
    claim();
}

xcb_window_t X11Focus::focused() const {
    const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        x11_.connection(), xcb_get_input_focus(x11_.connection()), nullptr));
    return reply ? reply->focus : static_cast<xcb_window_t>(XCB_INPUT_FOCUS_NONE);
}

/// The child of the root that a window is in; none if it is gone.
xcb_window_t X11Focus::topLevelOf(xcb_window_t window) const {
    for (int depth = 0; depth < deepest; ++depth) {
        const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            x11_.connection(), xcb_query_tree(x11_.connection(), window), nullptr));
        if (!tree) return XCB_WINDOW_NONE;
        if (tree->parent == x11_.root()) return window;
        window = tree->parent;
        if (window == XCB_WINDOW_NONE) return XCB_WINDOW_NONE;  // it was the root
    }
    return XCB_WINDOW_NONE;
}

}  // namespace noonward
