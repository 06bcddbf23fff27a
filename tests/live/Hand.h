#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/OtherClient.h"

namespace noonward::test {

/// The hand at mouse and keyboard. What it does in one call, the server paces: a busy computer
/// makes nothing of it slower or faster.
class Hand final : public OtherClient {
 public:
    explicit Hand(const char* display);

    /// Moves the pointer there and, so much later, on to the other place.
    void pass(QPoint by, std::chrono::milliseconds stay, QPoint to);
    void clickAt(QPoint at, std::uint8_t button = 1);
    void drag(QPoint from, QPoint to);

    /// A key with the modifiers that are held, as in "Control+Alt+t", "Shift+Right" or "[".
    void key(std::string_view name);
    /// Plain text of ASCII, a millisecond between one stroke and the next.
    void type(std::string_view text);
    /// The key with that name on it.
    xcb_keycode_t codeOf(std::string_view name) const { return find(name).code; }

 private:
    struct Place {
        xcb_keycode_t code;
        bool shifted;
    };
    Place find(std::string_view name) const;
    void fake(std::uint8_t type, std::uint8_t detail, std::uint32_t delay, QPoint at = {});
    void stroke(const std::vector<xcb_keycode_t>& codes, std::uint32_t delay);

    Reply<xcb_get_keyboard_mapping_reply_t> mapping_;
    xcb_keycode_t first_;
};

}  // namespace noonward::test
