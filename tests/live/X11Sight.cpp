#include "live/X11Sight.h"

#include <xcb/shape.h>

#include <algorithm>
#include <string_view>

namespace noonward::test {

X11Sight::X11Sight(const char* display) : client_(display) {
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(client_.connection(), client_.root(), XCB_CW_EVENT_MASK, &mask);
    client_.sync();
}

std::vector<X11Sight::Window> X11Sight::windows() {
    std::vector<Window> result;
    for (const xcb_window_t id : client_.stack()) {
        const auto where = geometry(id);
        if (!where || !isViewable(id) || !isProgram(id)) continue;
        result.push_back({id, inputFrame(id, *where)});
    }
    return result;
}

int X11Sight::shown() {
    client_.sync();
    int count = 0;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(client_.connection())}) {
        if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY)
            count += isProgram(as<xcb_map_notify_event_t>(*event).window);
    }
    return count;
}

bool X11Sight::isTrapAt(const QRect& where) {
    const auto windows = client_.stack();
    return std::any_of(windows.begin(), windows.end(),
                       [&](xcb_window_t id) { return geometry(id) == where && isViewable(id); });
}

bool X11Sight::isViewable(xcb_window_t window) {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        client_.connection(), xcb_get_window_attributes(client_.connection(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

// Toolkits name every window they make (ICCCM 4.1.2.5).
bool X11Sight::isProgram(xcb_window_t window) {
    const auto cookie = xcb_get_property(client_.connection(), false, window, XCB_ATOM_WM_CLASS,
                                         XCB_ATOM_STRING, 0, 64);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(client_.connection(), cookie, nullptr));
    if (!reply || reply->value_len == 0) return false;
    const std::string_view names(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                 reply->value_len);
    return names.find("noonward") != std::string_view::npos;
}

QRect X11Sight::inputFrame(xcb_window_t window, const QRect& geometry) {
    const auto cookie = xcb_shape_get_rectangles(client_.connection(), window, XCB_SHAPE_SK_INPUT);
    const Reply<xcb_shape_get_rectangles_reply_t> reply(
        xcb_shape_get_rectangles_reply(client_.connection(), cookie, nullptr));
    QRect result;
    const int count = reply ? xcb_shape_get_rectangles_rectangles_length(reply.get()) : 0;
    for (int i = 0; i < count; ++i) {
        const xcb_rectangle_t& each = xcb_shape_get_rectangles_rectangles(reply.get())[i];
        result |= QRect(each.x, each.y, each.width, each.height);
    }
    return result.translated(geometry.topLeft()) & geometry;
}

std::optional<QRect> X11Sight::geometry(xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(
        client_.connection(), xcb_get_geometry(client_.connection(), window), nullptr));
    if (!reply) return std::nullopt;
    return QRect(reply->x, reply->y, reply->width, reply->height);
}

}  // namespace noonward::test
