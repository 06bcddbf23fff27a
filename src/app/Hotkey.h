#pragma once

#include <cstdint>
#include <functional>

#include "app/Lifetime.h"
#include "platform/HotKeys.h"

namespace noonward {

/// A key that works whatever has the keyboard. It is registered for as long as the process runs; a
/// key that another program holds stays with that one, and nothing is said.
class Hotkey {
 public:
    /// `keyCode` and `modifiers` as in HotKeys; `id` tells it from the program's other keys.
    Hotkey(HotKeys& keys, int keyCode, std::uint32_t modifiers, std::uint32_t id,
           std::function<void()> action);

    bool registered() const { return registered_; }

 private:
    std::function<void()> action_;
    Lifetime lifetime_;
    bool registered_;
};

}  // namespace noonward
