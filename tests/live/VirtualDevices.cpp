#include <kde-fake-input.h>
#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-unstable-v1.h>
#include <wayland-client.h>
#include <wlr-virtual-pointer-unstable-v1.h>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include "live/WaylandHand.h"

namespace noonward::test {
namespace {

std::uint32_t now() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

// What both protocols have: a connection, and what the compositor offers on it.
class Devices : public WaylandHand::Devices {
 public:
    explicit Devices(wl_display* display) : display_(display) {}
    ~Devices() override { wl_display_disconnect(display_); }

 protected:
    void done() { wl_display_roundtrip(display_); }
    wl_display* display_;
};

class WlrDevices final : public Devices {
 public:
    WlrDevices(wl_display* display, zwlr_virtual_pointer_v1* pointer,
               zwp_virtual_keyboard_v1* keyboard)
        : Devices(display), pointer_(pointer), keyboard_(keyboard) {
        state_ = xkb_state_new(usKeymap());
        char* text = xkb_keymap_get_as_string(usKeymap(), XKB_KEYMAP_FORMAT_TEXT_V1);
        const std::size_t size = std::strlen(text) + 1;
        const int file = ::memfd_create("keymap", 0);
        if (::write(file, text, size) == static_cast<ssize_t>(size))
            zwp_virtual_keyboard_v1_keymap(keyboard_, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                           static_cast<std::uint32_t>(size));
        done();
        ::close(file);
        std::free(text);
    }
    ~WlrDevices() override {
        zwlr_virtual_pointer_v1_destroy(pointer_);
        zwp_virtual_keyboard_v1_destroy(keyboard_);
        xkb_state_unref(state_);
    }

    void moveTo(QPoint to) override {
        zwlr_virtual_pointer_v1_motion_absolute(pointer_, now(), static_cast<std::uint32_t>(to.x()),
                                                static_cast<std::uint32_t>(to.y()), 1600, 900);
        zwlr_virtual_pointer_v1_frame(pointer_);
        done();
    }
    void button(std::uint32_t code, bool down) override {
        zwlr_virtual_pointer_v1_button(pointer_, now(), code, down);
        zwlr_virtual_pointer_v1_frame(pointer_);
        done();
    }
    void key(std::uint32_t code, bool down) override {
        zwp_virtual_keyboard_v1_key(keyboard_, now(), code, down);
        xkb_state_update_key(state_, code + 8, down ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(
            keyboard_, xkb_state_serialize_mods(state_, XKB_STATE_MODS_DEPRESSED),
            xkb_state_serialize_mods(state_, XKB_STATE_MODS_LATCHED),
            xkb_state_serialize_mods(state_, XKB_STATE_MODS_LOCKED), 0);
        done();
    }

 private:
    zwlr_virtual_pointer_v1* pointer_;
    zwp_virtual_keyboard_v1* keyboard_;
    xkb_state* state_;
};

class KdeDevices final : public Devices {
 public:
    KdeDevices(wl_display* display, org_kde_kwin_fake_input* input)
        : Devices(display), input_(input) {
        org_kde_kwin_fake_input_authenticate(input_, "hand", "tests");
        done();
    }
    ~KdeDevices() override { org_kde_kwin_fake_input_destroy(input_); }
    void moveTo(QPoint to) override {
        org_kde_kwin_fake_input_pointer_motion_absolute(input_, wl_fixed_from_int(to.x()),
                                                        wl_fixed_from_int(to.y()));
        done();
    }
    void button(std::uint32_t code, bool down) override {
        org_kde_kwin_fake_input_button(input_, code, down);
        done();
    }
    void key(std::uint32_t code, bool down) override {
        org_kde_kwin_fake_input_keyboard_key(input_, code, down);
        done();
    }

 private:
    org_kde_kwin_fake_input* input_;
};

struct Offers {
    wl_seat* seat = nullptr;
    zwlr_virtual_pointer_manager_v1* pointers = nullptr;
    zwp_virtual_keyboard_manager_v1* keyboards = nullptr;
    org_kde_kwin_fake_input* fake = nullptr;
};

void take(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
          std::uint32_t version) {
    auto& offers = *static_cast<Offers*>(data);
    const auto bind = [&](auto*& object, const wl_interface& kind, std::uint32_t least) {
        if (std::string_view(interface) != kind.name || version < least) return;
        object = static_cast<std::remove_reference_t<decltype(object)>>(
            wl_registry_bind(registry, name, &kind, least));
    };
    bind(offers.seat, wl_seat_interface, 1);
    bind(offers.pointers, zwlr_virtual_pointer_manager_v1_interface, 1);
    bind(offers.keyboards, zwp_virtual_keyboard_manager_v1_interface, 1);
    bind(offers.fake, org_kde_kwin_fake_input_interface, 4);
}
void ignore(void*, wl_registry*, std::uint32_t) {}
constexpr wl_registry_listener listener{take, ignore};

}  // namespace

std::unique_ptr<WaylandHand::Devices> virtualDevices(const char* name) {
    wl_display* display = wl_display_connect(name);
    if (!display) throw std::runtime_error("no Wayland display");
    Offers offers;
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &listener, &offers);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    std::unique_ptr<WaylandHand::Devices> devices;
    if (offers.pointers && offers.keyboards)
        devices = std::make_unique<WlrDevices>(
            display,
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(offers.pointers, offers.seat),
            zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(offers.keyboards, offers.seat));
    else if (offers.fake)
        devices = std::make_unique<KdeDevices>(display, offers.fake);
    if (offers.pointers) zwlr_virtual_pointer_manager_v1_destroy(offers.pointers);
    if (offers.keyboards) zwp_virtual_keyboard_manager_v1_destroy(offers.keyboards);
    if (offers.seat) wl_seat_destroy(offers.seat);
    if (!devices) throw std::runtime_error("no virtual devices");
    return devices;
}

}  // namespace noonward::test
