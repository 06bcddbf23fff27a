#include "live/X11Hand.h"

#include <stdexcept>

namespace noonward::test {

X11Hand::X11Hand(const char* display) : OtherClient(display) {
    const xcb_setup_t* setup = xcb_get_setup(connection());
    first_ = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first_ + 1);
    mapping_.reset(xcb_get_keyboard_mapping_reply(
        connection(), xcb_get_keyboard_mapping(connection(), first_, count), nullptr));
}

void X11Hand::fake(std::uint8_t type, std::uint8_t detail, std::uint32_t delay, QPoint at) {
    xcb_test_fake_input(connection(), type, detail, delay, root(),
                        static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()), 0);
}

void X11Hand::pass(QPoint by, std::chrono::milliseconds stay, QPoint to) {
    fake(XCB_MOTION_NOTIFY, 0, 0, by);
    fake(XCB_MOTION_NOTIFY, 0, static_cast<std::uint32_t>(stay.count()), to);
    sync();
}

void X11Hand::stroke(const std::vector<std::uint8_t>& codes, std::uint32_t delay) {
    for (const xcb_keycode_t code : codes)
        fake(XCB_KEY_PRESS, code, delay);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code)
        fake(XCB_KEY_RELEASE, *code, 0);
    xcb_flush(connection());
}

Hand::Place X11Hand::findSymbol(std::uint32_t wanted) {
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping_.get());
    const int width = mapping_->keysyms_per_keycode;
    const int count = xcb_get_keyboard_mapping_keysyms_length(mapping_.get());
    for (int i = 0; i < count; ++i) {
        if (symbols[i] == wanted && i % width < 2)
            return {static_cast<xcb_keycode_t>(first_ + i / width), i % width == 1};
    }
    throw std::out_of_range("a symbol that is on no key");
}

}  // namespace noonward::test
