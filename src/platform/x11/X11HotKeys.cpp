#include "platform/x11/X11HotKeys.h"

#include <QMetaObject>
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/linux/KeyCodes.h"

namespace noonward {
namespace {

// A key that is held down repeats at least this often, in ms. After a longer pause it was let go
// of, though nobody told.
constexpr xcb_timestamp_t longestPause = 2000;

constexpr std::uint32_t altLeft = 0xffe9;  // keysyms (X11 protocol, appendix A)
constexpr std::uint32_t altRight = 0xffea;
constexpr std::uint32_t numLockKey = 0xff7f;

// The X key codes (evdev) of the letters' places, row by row from the left.
struct KeyRow {
    xcb_keycode_t first;
    std::string_view letters;
};
constexpr std::array keyRows{KeyRow{24, "QWERTYUIOP"}, KeyRow{38, "ASDFGHJKL"},
                             KeyRow{52, "ZXCVBNM"}};

std::optional<xcb_keycode_t> placeOf(int keyCode) {
    const auto letter = letterOf(keyCode);
    if (!letter) return std::nullopt;
    for (const KeyRow& row : keyRows) {
        const auto column = row.letters.find(*letter);
        if (column != std::string_view::npos) return static_cast<xcb_keycode_t>(row.first + column);
    }
    return std::nullopt;
}

// With Caps Lock and Num Lock off and on.
std::array<std::uint16_t, 4> variants(std::uint16_t mask, std::uint16_t numLock) {
    const auto with = [mask](int more) { return static_cast<std::uint16_t>(mask | more); };
    return {mask, with(XCB_MOD_MASK_LOCK), with(numLock), with(XCB_MOD_MASK_LOCK | numLock)};
}

}  // namespace

X11HotKeys::X11HotKeys(X11& x11) : x11_(x11) {
    events_ = x11_.onEvent(
        [this](const xcb_generic_event_t& event, std::uint8_t type) { watch(event, type); });
    keymap_ = x11_.keymapChanges().subscribe([this] {
        QMetaObject::invokeMethod(
            &context_, [this] { follow(); }, Qt::QueuedConnection);
    });
}

X11HotKeys::~X11HotKeys() {
    for (const Key& key : keys_)
        if (key.isHeld) release(key);
}

HotKeys::Outcome X11HotKeys::registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                                         std::function<void(std::uint32_t id)> pressed) {
    const auto code = placeOf(keyCode);
    if (!code) return Outcome::unavailable;
    if (keys_.empty()) roles_ = currentRoles();
    Key key{.code = *code, .modifiers = modifiers, .id = id, .pressed = std::move(pressed)};
    const Outcome outcome = grab(key);
    if (outcome == Outcome::registered) keys_.push_back(std::move(key));
    return outcome;
}

std::uint16_t X11HotKeys::maskOf(std::uint32_t modifiers, const Roles& roles) {
    int result = 0;
    if (modifiers & control) result |= XCB_MOD_MASK_CONTROL;
    if (modifiers & option) result |= roles.alt;
    return static_cast<std::uint16_t>(result);
}

HotKeys::Outcome X11HotKeys::grab(const Key& key) const {
    std::array<xcb_void_cookie_t, 4> cookies{};
    auto cookie = cookies.begin();
    for (const std::uint16_t mask : variants(maskOf(key.modifiers, roles_), roles_.numLock))
        *cookie++ = xcb_grab_key_checked(x11_.connection(), false, x11_.root(), mask, key.code,
                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    Outcome outcome = Outcome::registered;
    for (const xcb_void_cookie_t each : cookies) {
        const Reply<xcb_generic_error_t> error(xcb_request_check(x11_.connection(), each));
        if (!error || outcome == Outcome::taken) continue;
        outcome = error->error_code == XCB_ACCESS ? Outcome::taken : Outcome::unavailable;
    }
    // Half a hot key would work or not as the locks happen to be.
    if (outcome != Outcome::registered) release(key);
    return outcome;
}

void X11HotKeys::release(const Key& key) const {
    for (const std::uint16_t mask : variants(maskOf(key.modifiers, roles_), roles_.numLock))
        x11_.ignoreError(xcb_ungrab_key_checked(x11_.connection(), key.code, x11_.root(), mask));
    xcb_flush(x11_.connection());
}

/// The key's place stays the same, but a new keymap may move Alt and Num Lock to other bits. Those
/// may be taken; another keymap is also an occasion to look whether they still are.
void X11HotKeys::follow() {
    if (keys_.empty()) return;
    const Roles roles = currentRoles();
    if (roles != roles_) {
        for (Key& key : keys_)
            if (std::exchange(key.isHeld, false)) release(key);
        roles_ = roles;
    }
    for (Key& key : keys_)
        if (!key.isHeld) key.isHeld = grab(key) == Outcome::registered;
}

X11HotKeys::Roles X11HotKeys::currentRoles() const {
    xcb_connection_t* connection = x11_.connection();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto symbolsCookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const Reply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolsCookie, nullptr));
    const Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr));
    Roles roles;
    if (!symbols || !modifiers) return roles;

    const auto has = [&](xcb_keycode_t code, std::uint32_t wanted) {
        if (code < setup->min_keycode) return false;
        const std::ptrdiff_t width = symbols->keysyms_per_keycode;
        const xcb_keysym_t* first =
            xcb_get_keyboard_mapping_keysyms(symbols.get()) + (code - setup->min_keycode) * width;
        return std::find(first, first + width, wanted) != first + width;
    };
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const std::ptrdiff_t width = modifiers->keycodes_per_modifier;
    for (int bit = XCB_MAP_INDEX_5; bit >= XCB_MAP_INDEX_1; --bit) {
        for (const xcb_keycode_t* code = codes + bit * width; code != codes + (bit + 1) * width;
             ++code) {
            if (has(*code, altLeft) || has(*code, altRight))
                roles.alt = static_cast<std::uint16_t>(1 << bit);
            if (has(*code, numLockKey)) roles.numLock = static_cast<std::uint16_t>(1 << bit);
        }
    }
    return roles;
}

void X11HotKeys::watch(const xcb_generic_event_t& event, std::uint8_t type) {
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE) return;
    const auto& stroke = as<xcb_key_press_event_t>(event);
    if (stroke.event != x11_.root()) return;
    for (Key& key : keys_) {
        if (stroke.detail != key.code) continue;
        if (type == XCB_KEY_RELEASE) {
            key.isDown = false;
            key.lastUp = stroke.time;
            continue;
        }
        const auto locks = static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | roles_.numLock);
        constexpr std::uint16_t modifierBits = 0xff;  // above are layout and buttons
        if ((stroke.state & modifierBits & ~locks) != maskOf(key.modifiers, roles_)) continue;
        const bool repeats = isRepeat(key, stroke.time);
        key.isDown = true;
        key.lastDown = stroke.time;
        if (repeats) continue;
        const auto call = [pressed = key.pressed, id = key.id] { pressed(id); };
        QMetaObject::invokeMethod(&context_, call, Qt::QueuedConnection);
    }
}

/// A held key comes either as presses without releases between, or with ones of the same moment.
bool X11HotKeys::isRepeat(const Key& key, xcb_timestamp_t time) {
    if (key.isDown) return time - key.lastDown < longestPause;
    return key.lastUp != 0 && time == key.lastUp;
}

}  // namespace noonward
