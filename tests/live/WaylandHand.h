#pragma once

#include <memory>

#include <string>

#include "live/Hand.h"

struct xkb_keymap;

namespace noonward::test {

/// The hand of a Wayland desktop, by what its compositor has for such: virtual devices, KDE's fake
/// input or GNOME's remote desktop. What is done has come to the compositor when it returns. The
/// pointer goes in small steps, as a hand moves it; the keyboard is a US one.
class WaylandHand final : public Hand {
 public:
    /// The devices; each call has come to the compositor when it returns.
    class Devices {
     public:
        virtual ~Devices() = default;
        virtual void moveTo(QPoint to) = 0;                      // points
        virtual void button(std::uint32_t code, bool down) = 0;  // as evdev counts them
        virtual void key(std::uint32_t code, bool down) = 0;     // likewise
    };

    explicit WaylandHand(std::unique_ptr<Devices> devices);

    void movePointer(QPoint to) override;
    void press(std::uint8_t button) override { pressOrNot(button, true); }
    void release(std::uint8_t button) override { pressOrNot(button, false); }

 private:
    Place findSymbol(std::uint32_t symbol) override;
    void stroke(const std::vector<std::uint8_t>& codes, std::uint32_t delay) override;
    void pressOrNot(std::uint8_t button, bool down);

    std::unique_ptr<Devices> devices_;
    QPoint at_;
};

/// The keyboard that the hand is at.
xkb_keymap* usKeymap();

/// By the protocols of wlroots or KWin, on the display of that name.
std::unique_ptr<WaylandHand::Devices> virtualDevices(const char* display);
/// By GNOME's own interface on the bus.
std::unique_ptr<WaylandHand::Devices> remoteDevices(const std::string& bus);

}  // namespace noonward::test
