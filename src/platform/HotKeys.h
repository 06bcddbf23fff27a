#pragma once

#include <cstdint>
#include <functional>

namespace noonward {

/// Keys that reach the program whatever has the keyboard.
class HotKeys {
 public:
    enum class Outcome { registered, taken, unavailable };

    enum Modifier : std::uint32_t { control = 0x1000, option = 0x0800 };

    virtual ~HotKeys() = default;

    /// Registers a key for the rest of the process: a virtual key code (17 is T) and `Modifier`s.
    /// `pressed` is called from the event loop with `id`. `taken`: another program has it.
    virtual Outcome registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                                std::function<void(std::uint32_t id)> pressed) = 0;
};

}  // namespace noonward
