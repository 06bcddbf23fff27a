#include "platform/wayland/WaylandKeyboard.h"

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <QKeyEvent>

namespace noonward {
namespace {

constexpr std::uint32_t sinceRelease = 3;
constexpr std::uint32_t largest = 16U << 20U;  // bytes; no keymap comes near it

}  // namespace

struct WaylandKeyboard::Listener {
    static void capabilities(void* self, wl_seat*, std::uint32_t capabilities) {
        static_cast<WaylandKeyboard*>(self)->setPlugged(capabilities & WL_SEAT_CAPABILITY_KEYBOARD);
    }
    static void name(void*, wl_seat*, const char*) {}
    static constexpr wl_seat_listener seat{capabilities, name};

    static void keymap(void* self, wl_keyboard*, std::uint32_t format, int file,
                       std::uint32_t size) {
        static_cast<WaylandKeyboard*>(self)->takeKeymap(format, file, size);
    }
    static void modifiers(void* self, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t,
                          std::uint32_t, std::uint32_t group) {
        static_cast<WaylandKeyboard*>(self)->layout_ = group;
    }
    // Qt hears of keys by a keyboard of its own.
    static void enter(void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {}
    static void leave(void*, wl_keyboard*, std::uint32_t, wl_surface*) {}
    static void key(void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t,
                    std::uint32_t) {}
    static void repeat(void*, wl_keyboard*, std::int32_t, std::int32_t) {}
    static constexpr wl_keyboard_listener keyboard{keymap, enter, leave, key, modifiers, repeat};
};

WaylandKeyboard::WaylandKeyboard(const Wayland& wayland)
    : seat_(wayland.bind<wl_seat>(wl_seat_interface, sinceRelease)) {
    if (seat_) wl_seat_add_listener(seat_, &Listener::seat, this);
}

WaylandKeyboard::~WaylandKeyboard() {
    setPlugged(false);
    if (seat_) wl_seat_destroy(seat_);
}

KeyPress WaylandKeyboard::read(const QKeyEvent& event) const {
    return keymap_.read(event, layout_);
}

void WaylandKeyboard::setPlugged(bool plugged) {
    if (plugged == (keyboard_ != nullptr)) return;
    if (plugged) {
        keyboard_ = wl_seat_get_keyboard(seat_);
        wl_keyboard_add_listener(keyboard_, &Listener::keyboard, this);
    } else {
        if (wl_keyboard_get_version(keyboard_) >= sinceRelease)
            wl_keyboard_release(keyboard_);
        else
            wl_keyboard_destroy(keyboard_);
        keyboard_ = nullptr;
    }
}

// A text that ends with a zero byte.
void WaylandKeyboard::takeKeymap(std::uint32_t format, int file, std::uint32_t size) {
    const bool isReadable =
        format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0 && size <= largest;
    void* text = isReadable ? mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0) : MAP_FAILED;
    ::close(file);
    if (text == MAP_FAILED) return;
    if (const XkbContext context = makeXkbContext())
        keymap_ = Keymap(XkbKeymap(
            xkb_keymap_new_from_buffer(context.get(), static_cast<const char*>(text), size - 1,
                                       XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS)));
    munmap(text, size);
}

}  // namespace noonward
