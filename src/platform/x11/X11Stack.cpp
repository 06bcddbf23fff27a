#include "platform/x11/X11Stack.h"

#include <QGuiApplication>
#include <QMetaObject>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

namespace noonward {
namespace {

using namespace std::chrono_literals;

// Somebody else may want to be in front of all as well: the quarrel must not take all the time.
constexpr auto period = 1000ms;
constexpr int mostActions = 10;

void place(X11& x11, xcb_window_t window, xcb_window_t above) {
    const std::uint32_t values[] = {above, XCB_STACK_MODE_ABOVE};
    const bool isRelative = above != XCB_WINDOW_NONE;
    const auto mask = static_cast<std::uint16_t>(isRelative ? XCB_CONFIG_WINDOW_SIBLING |
                                                                  XCB_CONFIG_WINDOW_STACK_MODE
                                                            : XCB_CONFIG_WINDOW_STACK_MODE);
    x11.ignoreError(xcb_configure_window_checked(x11.connection(), window, mask,
                                                 isRelative ? values : values + 1));
}

}  // namespace

X11Stack::X11Stack(X11& x11) : x11_(x11) {
    x11_.addRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    events_ = x11_.onEvent(
        [this](const xcb_generic_event_t& event, std::uint8_t type) { watch(event, type); });
}

void X11Stack::keep(xcb_window_t window, Layer layer) {
    forget(window);
    const auto before = std::find_if(kept_.begin(), kept_.end(),
                                     [layer](const Kept& each) { return each.layer > layer; });
    kept_.insert(before, {window, layer});
}

void X11Stack::forget(xcb_window_t window) {
    std::erase_if(kept_, [window](const Kept& each) { return each.window == window; });
}

void X11Stack::raise(xcb_window_t window) {
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [window](const Kept& each) { return each.window == window; });
    if (found == kept_.end()) return;
    keep(window, found->layer);
    const auto order = inOrder();
    for (auto each = std::find(order.begin(), order.end(), window); each != order.end(); ++each)
        place(x11_, *each, XCB_WINDOW_NONE);
    xcb_flush(x11_.connection());
}

/// Our windows from back to front; menus and tooltips last, each in front of what opened it.
std::vector<xcb_window_t> X11Stack::inOrder() const {
    std::vector<xcb_window_t> result;
    for (const Kept& each : kept_)
        result.push_back(each.window);
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        const bool isPassing = window->type() == Qt::Popup || window->type() == Qt::ToolTip;
        if (isPassing && window->isVisible())
            result.push_back(static_cast<xcb_window_t>(window->winId()));
    }
    return result;
}

void X11Stack::watch(const xcb_generic_event_t& event, std::uint8_t type) {
    if (type == XCB_MAP_NOTIFY) {
        const auto& map = as<xcb_map_notify_event_t>(event);
        if (map.event == x11_.root() && !map.override_redirect && !x11_.isOurs(map.window))
            settleSoon();
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        const auto& change = as<xcb_configure_notify_event_t>(event);
        if (change.event != x11_.root() || change.override_redirect || x11_.isOurs(change.window))
            return;
        const bool isSamePlace =
            change.window == last_.window && change.above_sibling == last_.above_sibling;
        last_ = change;
        if (!isSamePlace) settleSoon();
    }
}

void X11Stack::settleSoon() {
    if (kept_.empty() || std::exchange(pending_, true)) return;
    if (mayAct())
        QMetaObject::invokeMethod(
            &context_, [this] { settle(); }, Qt::QueuedConnection);
    else
        QTimer::singleShot(period, &context_, [this] { settle(); });
}

bool X11Stack::mayAct() {
    if (!period_.isValid() || period_.hasExpired(std::chrono::milliseconds(period).count())) {
        period_.start();
        actions_ = 0;
    }
    return ++actions_ <= mostActions;
}

void X11Stack::settle() {
    pending_ = false;
    xcb_window_t below = foremostOrdinary();
    if (below == XCB_WINDOW_NONE) return;
    for (const xcb_window_t window : inOrder()) {
        place(x11_, window, below);
        below = window;
    }
    last_ = {};
    xcb_flush(x11_.connection());
}

std::vector<xcb_window_t> X11Stack::children() const {
    const auto cookie = xcb_query_tree(x11_.connection(), x11_.root());
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x11_.connection(), cookie, nullptr));
    if (!tree) return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

/// The foremost of the ordinary windows that hide one of ours, or may.
xcb_window_t X11Stack::foremostOrdinary() const {
    const auto windows = children();
    const auto rearmost = std::find_if(windows.begin(), windows.end(), [this](xcb_window_t window) {
        return std::any_of(kept_.begin(), kept_.end(),
                           [window](const Kept& each) { return each.window == window; });
    });
    std::vector<std::pair<xcb_window_t, xcb_get_window_attributes_cookie_t>> asked;
    for (auto window = rearmost; window != windows.end(); ++window)
        if (!x11_.isOurs(*window))
            asked.emplace_back(*window, xcb_get_window_attributes(x11_.connection(), *window));
    xcb_window_t foremost = XCB_WINDOW_NONE;
    for (const auto& [window, cookie] : asked) {
        const Reply<xcb_get_window_attributes_reply_t> is(
            xcb_get_window_attributes_reply(x11_.connection(), cookie, nullptr));
        if (is && is->map_state == XCB_MAP_STATE_VIEWABLE && !is->override_redirect)
            foremost = window;
    }
    return foremost;
}

}  // namespace noonward
