#include "platform/x11/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace noonward {
namespace {

// A bar that starts anew is gone for a moment, and what it kept free with it.
constexpr std::chrono::milliseconds restart(500);

constexpr double thickest = 120;           // points; no bar that one would call so is higher
constexpr std::uint32_t mostWords = 4096;  // four for each workspace

std::vector<std::uint32_t> cardinals(X11& x11, const char* property) {
    const auto cookie = xcb_get_property(x11.connection(), false, x11.root(), x11.atom(property),
                                         XCB_ATOM_CARDINAL, 0, mostWords);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(x11.connection(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* words = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {words, words + reply->value_len};
}

// The upper edge of the current workspace's free area, in pixels of the root window.
std::optional<std::uint32_t> topOfWorkArea(X11& x11) {
    const auto areas = cardinals(x11, "_NET_WORKAREA");
    const auto current = cardinals(x11, "_NET_CURRENT_DESKTOP");
    const std::size_t workspace = current.empty() ? 0 : current.front();
    if (workspace >= areas.size() / 4) return std::nullopt;
    return areas[4 * workspace + 1];
}

// The window manager's name, by the window that it leaves as its sign.
std::string windowManager(X11& x11) {
    const auto ask = [&](xcb_window_t window, const char* property) {
        const auto cookie = xcb_get_property(x11.connection(), false, window, x11.atom(property),
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords);
        return Reply<xcb_get_property_reply_t>(
            xcb_get_property_reply(x11.connection(), cookie, nullptr));
    };
    const auto sign = ask(x11.root(), "_NET_SUPPORTING_WM_CHECK");
    if (!sign || sign->format != 32 || sign->value_len == 0) return {};
    const auto window = *static_cast<const xcb_window_t*>(xcb_get_property_value(sign.get()));
    const auto name = ask(window, "_NET_WM_NAME");
    if (!name || name->format != 8) return {};
    return {static_cast<const char*>(xcb_get_property_value(name.get())), name->value_len};
}

}  // namespace

X11Screens::X11Screens(X11& x11) : x11_(x11) {
    x11_.addRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    settling_.setSingleShot(true);
    settling_.setInterval(restart);
    settling_.callOnTimeout([this] { reconsider(); });
    events_ = x11_.onEvent([this](const xcb_generic_event_t& event, std::uint8_t type) {
        if (type != XCB_PROPERTY_NOTIFY) return;
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (change.window == x11_.root() && change.atom == x11_.atom("_NET_WORKAREA"))
            settling_.start();
    });
}

double X11Screens::statusBarThickness() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    // There is one free area for all monitors together: it tells of those at the very top only.
    if (!screen || screen->geometry().top() != 0) return 0;
    const double points = topOfWorkArea(x11_).value_or(0) / screen->devicePixelRatio();
    return points <= thickest ? points : 0;
}

bool X11Screens::hasOwnClock() const {
    return windowManager(x11_) == "GNOME Shell";
}

}  // namespace noonward
