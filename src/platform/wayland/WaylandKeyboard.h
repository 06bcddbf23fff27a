#pragma once

#include "platform/linux/Keymap.h"
#include "platform/wayland/Wayland.h"

struct wl_keyboard;
struct wl_seat;

namespace noonward {

/// The keyboard of a Wayland compositor, read through its own keymap, which the compositor hands to
/// every program (Wayland protocol, wl_keyboard).
class WaylandKeyboard final : public Keyboard {
 public:
    explicit WaylandKeyboard(const Wayland& wayland);  ///< which must outlive this object
    ~WaylandKeyboard() override;
    WaylandKeyboard(const WaylandKeyboard&) = delete;
    WaylandKeyboard& operator=(const WaylandKeyboard&) = delete;

    KeyPress read(const QKeyEvent& event) const override;

 private:
    struct Listener;
    void setPlugged(bool plugged);
    void takeKeymap(std::uint32_t format, int file, std::uint32_t size);

    wl_seat* seat_;
    wl_keyboard* keyboard_ = nullptr;  // while one is plugged in
    Keymap keymap_;
    std::uint32_t layout_ = 0;
};

}  // namespace noonward
