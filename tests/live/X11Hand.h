#pragma once

#include <chrono>

#include "live/Hand.h"
#include "support/OtherClient.h"

namespace noonward::test {

/// The hand of an X server. What it does in one call, the server paces: a busy computer makes
/// nothing of it slower or faster.
class X11Hand final : public OtherClient, public Hand {
 public:
    explicit X11Hand(const char* display);

    void movePointer(QPoint to) override { OtherClient::movePointer(to); }
    void press(std::uint8_t button) override { OtherClient::press(button); }
    void release(std::uint8_t button) override { OtherClient::release(button); }
    using Hand::click;
    /// Moves the pointer there and, so much later, on to the other place.
    void pass(QPoint by, std::chrono::milliseconds stay, QPoint to);

 private:
    Place findSymbol(std::uint32_t symbol) override;
    void fake(std::uint8_t type, std::uint8_t detail, std::uint32_t delay, QPoint at = {});
    void stroke(const std::vector<std::uint8_t>& codes, std::uint32_t delay) override;

    Reply<xcb_get_keyboard_mapping_reply_t> mapping_;
    xcb_keycode_t first_;
};

}  // namespace noonward::test
