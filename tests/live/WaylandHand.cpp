#include "live/WaylandHand.h"

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform/linux/Keymap.h"

namespace noonward::test {
namespace {

constexpr int steps = 16;
constexpr std::chrono::milliseconds aStep(4);
constexpr std::uint32_t keyOffset = 8;  // between evdev's numbers and XKB's

std::uint32_t buttonOf(std::uint8_t button) {
    return button == 3 ? BTN_RIGHT : BTN_LEFT;
}

}  // namespace

WaylandHand::WaylandHand(std::unique_ptr<Devices> devices) : devices_(std::move(devices)) {}

void WaylandHand::movePointer(QPoint to) {
    const QPoint from = at_;
    for (int step = 1; step <= steps; ++step) {
        devices_->moveTo(from + (to - from) * step / steps);
        std::this_thread::sleep_for(aStep);
    }
    at_ = to;
}

void WaylandHand::pressOrNot(std::uint8_t button, bool down) {
    devices_->button(buttonOf(button), down);
    std::this_thread::sleep_for(aStep);
}

Hand::Place WaylandHand::findSymbol(std::uint32_t symbol) {
    for (xkb_keycode_t code = keyOffset; code <= xkb_keymap_max_keycode(usKeymap()); ++code) {
        for (xkb_level_index_t level = 0; level < 2; ++level) {
            const xkb_keysym_t* symbols = nullptr;
            if (xkb_keymap_key_get_syms_by_level(usKeymap(), code, 0, level, &symbols) == 1 &&
                symbols[0] == symbol)
                return {static_cast<std::uint8_t>(code), level == 1};
        }
    }
    throw std::out_of_range("a symbol that is on no key");
}

void WaylandHand::stroke(const std::vector<std::uint8_t>& codes, std::uint32_t) {
    for (const std::uint8_t code : codes)
        devices_->key(code - keyOffset, true);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code)
        devices_->key(*code - keyOffset, false);
}

xkb_keymap* usKeymap() {
    static const XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    constexpr xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    static const XkbKeymap keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    return keymap.get();
}

}  // namespace noonward::test
