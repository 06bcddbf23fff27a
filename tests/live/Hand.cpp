#include "live/Hand.h"

#include <map>
#include <stdexcept>

namespace noonward::test {
namespace {

// X11 protocol, appendix A; those of ASCII are the characters themselves.
const std::map<std::string_view, xcb_keysym_t> named = {
    {"BackSpace", 0xff08}, {"Tab", 0xff09},  {"Return", 0xff0d}, {"Escape", 0xff1b},
    {"Home", 0xff50},      {"Left", 0xff51}, {"Up", 0xff52},     {"Right", 0xff53},
    {"Down", 0xff54},      {"End", 0xff57},  {"Delete", 0xffff}, {"Shift", 0xffe1},
    {"Control", 0xffe3},   {"Alt", 0xffe9},
};

xcb_keysym_t symbolOf(std::string_view name) {
    if (name.size() == 1) return static_cast<unsigned char>(name.front());
    return named.at(name);
}

}  // namespace

Hand::Hand(const char* display) : OtherClient(display) {
    const xcb_setup_t* setup = xcb_get_setup(connection());
    first_ = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first_ + 1);
    mapping_.reset(xcb_get_keyboard_mapping_reply(
        connection(), xcb_get_keyboard_mapping(connection(), first_, count), nullptr));
}

void Hand::fake(std::uint8_t type, std::uint8_t detail, std::uint32_t delay, QPoint at) {
    xcb_test_fake_input(connection(), type, detail, delay, root(),
                        static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()), 0);
}

void Hand::pass(QPoint by, std::chrono::milliseconds stay, QPoint to) {
    fake(XCB_MOTION_NOTIFY, 0, 0, by);
    fake(XCB_MOTION_NOTIFY, 0, static_cast<std::uint32_t>(stay.count()), to);
    sync();
}

void Hand::clickAt(QPoint at, std::uint8_t button) {
    movePointer(at);
    click(button);
}

void Hand::drag(QPoint from, QPoint to) {
    movePointer(from);
    press(1);
    movePointer((from + to) / 2);
    movePointer(to);
    release(1);
}

void Hand::key(std::string_view name) {
    std::vector<xcb_keycode_t> codes;
    for (auto plus = name.find('+'); plus != std::string_view::npos; plus = name.find('+')) {
        codes.push_back(codeOf(name.substr(0, plus)));
        name.remove_prefix(plus + 1);
    }
    codes.push_back(codeOf(name));
    stroke(codes, 2);  // two strokes of one millisecond would be a repeat
}

void Hand::type(std::string_view text) {
    for (const char& letter : text) {
        const Place place = find({&letter, 1});
        if (place.shifted)
            stroke({codeOf("Shift"), place.code}, 0);
        else
            stroke({place.code}, 1);
    }
}

void Hand::stroke(const std::vector<xcb_keycode_t>& codes, std::uint32_t delay) {
    for (const xcb_keycode_t code : codes)
        fake(XCB_KEY_PRESS, code, delay);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code)
        fake(XCB_KEY_RELEASE, *code, 0);
    xcb_flush(connection());
}

Hand::Place Hand::find(std::string_view name) const {
    const xcb_keysym_t wanted = symbolOf(name);
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping_.get());
    const int width = mapping_->keysyms_per_keycode;
    const int count = xcb_get_keyboard_mapping_keysyms_length(mapping_.get());
    for (int i = 0; i < count; ++i) {
        if (symbols[i] == wanted && i % width < 2)
            return {static_cast<xcb_keycode_t>(first_ + i / width), i % width == 1};
    }
    throw std::out_of_range(std::string(name) + " is on no key");
}

}  // namespace noonward::test
