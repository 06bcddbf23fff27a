#include "platform/x11/X11Keyboard.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <QKeyEvent>

namespace noonward {
namespace {

// The core protocol's state has the layout in two bits above its modifiers (XKB protocol, 2.1).
constexpr std::uint32_t layoutShift = 13;
constexpr std::uint32_t layoutBits = 3;

}  // namespace

X11Keyboard::X11Keyboard(X11& x11) : x11_(x11) {
    changes_ = x11_.keymapChanges().subscribe([this] { keymap_ = Keymap(); });
}

KeyPress X11Keyboard::read(const QKeyEvent& event) const {
    if (!keymap_ && event.nativeScanCode() != 0) keymap_ = Keymap(fetch());
    return keymap_.read(event, event.nativeModifiers() >> layoutShift & layoutBits);
}

XkbKeymap X11Keyboard::fetch() const {
    if (!context_) {
        if (!xkb_x11_setup_xkb_extension(
                x11_.connection(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
            return nullptr;
        context_ = makeXkbContext();
    }
    if (!context_) return nullptr;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(x11_.connection());
    if (device < 0) return nullptr;
    return XkbKeymap(xkb_x11_keymap_new_from_device(context_.get(), x11_.connection(), device,
                                                    XKB_KEYMAP_COMPILE_NO_FLAGS));
}

}  // namespace noonward
