#pragma once

#include <QObject>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/x11/X11.h"

namespace noonward {

/// Keys that the X server hands to this program alone (passive grabs), whatever has the keyboard
/// and whichever locks are on. Option is Alt.
class X11HotKeys final : public HotKeys {
 public:
    explicit X11HotKeys(X11& x11);  ///< which must outlive this object
    ~X11HotKeys() override;

    /// `unavailable`: no letter's key code, or no such letter on the keyboard.
    Outcome registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                        std::function<void(std::uint32_t id)> pressed) override;

 private:
    /// What the bits of the X server's modifier state stand for at this moment.
    struct Roles {
        std::uint16_t alt = XCB_MOD_MASK_1;
        std::uint16_t numLock = XCB_MOD_MASK_2;
        bool operator==(const Roles&) const = default;
    };

    struct Key {
        xcb_keycode_t code = 0;
        std::uint32_t modifiers = 0;
        std::uint32_t id = 0;
        std::function<void(std::uint32_t id)> pressed;
        bool isHeld = true;  // the server hands it to us
        bool isDown = false;
        xcb_timestamp_t lastDown = 0;  // of the latest press, or of a repeat of it
        xcb_timestamp_t lastUp = 0;
    };

    static std::uint16_t maskOf(std::uint32_t modifiers, const Roles& roles);
    Roles currentRoles() const;
    Outcome grab(const Key& key) const;
    void release(const Key& key) const;
    void follow();
    void watch(const xcb_generic_event_t& event, std::uint8_t type);
    static bool isRepeat(const Key& key, xcb_timestamp_t time);

    X11& x11_;
    Roles roles_;
    std::vector<Key> keys_;
    QObject context_;
    Subscription events_;
    Subscription keymap_;
};

}  // namespace noonward
