#include "app/Hotkey.h"

#include <utility>

namespace noonward {

Hotkey::Hotkey(HotKeys& keys, int keyCode, std::uint32_t modifiers, std::uint32_t id,
               std::function<void()> action)
    : action_(std::move(action)) {
    const auto pressed = [id, act = lifetime_.weakly([this] { action_(); })](std::uint32_t which) {
        if (which == id) act();
    };
    registered_ = keys.registerKey(keyCode, modifiers, id, pressed) == HotKeys::Outcome::registered;
}

}  // namespace noonward
