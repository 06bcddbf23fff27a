#pragma once

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <QRect>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/x11/X11.h"

namespace noonward::test {

/// What this process has asked the server for has happened when it returns.
inline void sync(const X11& x11) {
    const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        x11.connection(), xcb_get_input_focus(x11.connection()), nullptr));
}

/// Another program on the same X server, and the hand at mouse and keyboard. Each call has
/// happened on the server when it returns.
class OtherClient {
 public:
    /// On the display of that name; on this process's own without.
    explicit OtherClient(const char* display = nullptr)
        : connection_(xcb_connect(display, nullptr)) {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    OtherClient(const OtherClient&) = delete;
    OtherClient& operator=(const OtherClient&) = delete;
    ~OtherClient() { xcb_disconnect(connection_); }

    xcb_connection_t* connection() const { return connection_; }
    xcb_window_t root() const { return root_; }

    /// A window of its own, on the screen, in front; presses in it are counted, of buttons and
    /// keys.
    xcb_window_t show(const QRect& at, std::uint32_t colour = 0, bool overrideRedirect = false) {
        const xcb_window_t window = xcb_generate_id(connection_);
        const std::uint32_t values[] = {colour, overrideRedirect,
                                        XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_KEY_PRESS};
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_,
                          static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()),
                          static_cast<std::uint16_t>(at.width()),
                          static_cast<std::uint16_t>(at.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_map_window(connection_, window);
        sync();
        return window;
    }

    void map(xcb_window_t window) {
        xcb_map_window(connection_, window);
        sync();
    }
    void destroy(xcb_window_t window) {
        xcb_destroy_window(connection_, window);
        sync();
    }
    void raise(xcb_window_t window) {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        sync();
    }

    void movePointer(QPoint to) {
        fake(XCB_MOTION_NOTIFY, 0, static_cast<std::int16_t>(to.x()),
             static_cast<std::int16_t>(to.y()));
    }
    void press(std::uint8_t button) { fake(XCB_BUTTON_PRESS, button); }
    void release(std::uint8_t button) { fake(XCB_BUTTON_RELEASE, button); }
    void click(std::uint8_t button) {
        press(button);
        release(button);
    }
    // No hand is so fast that two strokes fall into the same millisecond: that is what repeats do.
    void pressKey(std::uint8_t code) { fake(XCB_KEY_PRESS, code, 0, 0, 2); }
    void releaseKey(std::uint8_t code) { fake(XCB_KEY_RELEASE, code, 0, 0, 2); }

    /// The key comes to this client alone, whoever has the keyboard.
    void grabKey(xcb_keycode_t code, std::uint16_t modifiers) {
        xcb_grab_key(connection_, false, root_, modifiers, code, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        sync();
    }
    void focus(xcb_window_t window) {
        xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        sync();
    }
    xcb_window_t focused() {
        const Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
        return reply->focus;
    }

    /// The window that stands for a selection (ICCCM 2), such as "CLIPBOARD"; 0 if none does.
    xcb_window_t ownerOf(std::string_view selection) {
        const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
            connection_, xcb_get_selection_owner(connection_, atom(selection)), nullptr));
        return reply->owner;
    }
    void own(std::string_view selection, xcb_window_t window) {
        xcb_set_selection_owner(connection_, window, atom(selection), XCB_CURRENT_TIME);
        sync();
    }

    /// The children of the root, from back to front.
    std::vector<xcb_window_t> stack() {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
        const xcb_window_t* first = xcb_query_tree_children(tree.get());
        return {first, first + xcb_query_tree_children_length(tree.get())};
    }

    /// What the screen shows there; nothing where any of it is off the screen.
    std::vector<std::uint8_t> pixels(const QRect& at) {
        const auto cookie = xcb_get_image(
            connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, static_cast<std::int16_t>(at.x()),
            static_cast<std::int16_t>(at.y()), static_cast<std::uint16_t>(at.width()),
            static_cast<std::uint16_t>(at.height()), ~0U);
        const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(connection_, cookie, nullptr));
        if (!image) return {};
        const std::uint8_t* first = xcb_get_image_data(image.get());
        return {first, first + xcb_get_image_data_length(image.get())};
    }

    /// Presses of buttons in its windows since the last call.
    int presses() {
        drain();
        return std::exchange(presses_, 0);
    }
    /// The keys that were pressed for its windows since the last call.
    std::vector<xcb_keycode_t> keys() {
        drain();
        return std::exchange(keys_, {});
    }

    void sync() { focused(); }

 private:
    void fake(std::uint8_t type, std::uint8_t detail, std::int16_t x = 0, std::int16_t y = 0,
              std::uint32_t delay = 0) {
        xcb_test_fake_input(connection_, type, detail, delay, root_, x, y, 0);
        sync();
    }

    xcb_atom_t atom(std::string_view name) {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            connection_,
            xcb_intern_atom(connection_, false, static_cast<std::uint16_t>(name.size()),
                            name.data()),
            nullptr));
        return reply->atom;
    }

    void drain() {
        sync();
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
            const int type = event->response_type & 0x7f;
            if (type == XCB_BUTTON_PRESS) ++presses_;
            if (type == XCB_KEY_PRESS) keys_.push_back(as<xcb_key_press_event_t>(*event).detail);
        }
    }

    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    int presses_ = 0;
    std::vector<xcb_keycode_t> keys_;
};

}  // namespace noonward::test
