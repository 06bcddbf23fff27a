#include "platform/linux/Keymap.h"

#include <xkbcommon/xkbcommon.h>

#include <QKeyEvent>
#include <array>
#include <cstdarg>
#include <utility>

namespace noonward {
namespace {

// The modifiers themselves; those that a keymap makes of them lie above.
constexpr std::uint32_t modifierBits = 0xff;

struct ReleaseState {
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

KeyPress::Key keyOf(int key) {
    switch (key) {
        case Qt::Key_Escape:
            return KeyPress::Key::escape;
        case Qt::Key_Left:
            return KeyPress::Key::leftArrow;
        case Qt::Key_Right:
            return KeyPress::Key::rightArrow;
        default:
            return KeyPress::Key::other;
    }
}

// Modifiers that make commands, not characters; and a lock must not turn one key into another.
std::uint32_t ignoredModifiers(xkb_keymap* keymap) {
    std::uint32_t result = 0;
    for (const char* name :
         {XKB_MOD_NAME_CTRL, XKB_MOD_NAME_ALT, XKB_MOD_NAME_LOGO, XKB_MOD_NAME_CAPS}) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, name);
        if (index < 32) result |= 1U << index;
    }
    return result;
}

bool isLatinLetter(xkb_keysym_t symbol) {
    return (symbol >= XKB_KEY_a && symbol <= XKB_KEY_z) ||
           (symbol >= XKB_KEY_A && symbol <= XKB_KEY_Z);
}

// The first key symbol of a key in a layout, without any modifier.
xkb_keysym_t plainSymbol(xkb_keymap* keymap, xkb_keycode_t code, xkb_layout_index_t layout) {
    const xkb_keysym_t* symbols = nullptr;
    const bool known = layout < xkb_keymap_num_layouts_for_key(keymap, code) &&
                       xkb_keymap_key_get_syms_by_level(keymap, code, layout, 0, &symbols) > 0;
    return known ? symbols[0] : XKB_KEY_NoSymbol;
}

bool hasLatinLetters(xkb_keymap* keymap, xkb_layout_index_t layout) {
    for (auto code = xkb_keymap_min_keycode(keymap); code <= xkb_keymap_max_keycode(keymap); ++code)
        if (isLatinLetter(plainSymbol(keymap, code, layout))) return true;
    return false;
}

std::string textOf(xkb_keymap* keymap, xkb_keycode_t code, std::uint32_t modifiers,
                   xkb_layout_index_t layout) {
    const std::unique_ptr<xkb_state, ReleaseState> state(xkb_state_new(keymap));
    if (!state) return {};
    xkb_state_update_mask(state.get(), modifiers & ~ignoredModifiers(keymap), 0, 0, 0, 0, layout);
    std::array<char, 64> text{};  // longer ones are cut
    xkb_state_key_get_utf8(state.get(), code, text.data(), text.size());
    return text.data();
}

bool isAscii(const std::string& text) {
    return text.size() == 1 && static_cast<unsigned char>(text[0]) < 0x80;
}

XkbContext makeContext(xkb_context_flags flags) {
    XkbContext context(xkb_context_new(flags));
    if (context)
        xkb_context_set_log_fn(context.get(),
                               [](xkb_context*, xkb_log_level, const char*, va_list) {});
    return context;
}

}  // namespace

void XkbRelease::operator()(xkb_context* context) const {
    xkb_context_unref(context);
}

void XkbRelease::operator()(xkb_keymap* keymap) const {
    xkb_keymap_unref(keymap);
}

XkbContext makeXkbContext() {
    return makeContext(XKB_CONTEXT_NO_DEFAULT_INCLUDES);
}

Keymap::Keymap(XkbKeymap keymap) : keymap_(std::move(keymap)) {}

KeyPress Keymap::read(const QKeyEvent& event, std::uint32_t layout) const {
    return {.key = keyOf(event.key()),
            .shift = event.modifiers().testFlag(Qt::ShiftModifier),
            .command = event.modifiers().testFlag(Qt::ControlModifier),
            .characters = event.text().toStdString(),
            .charactersUnmodified = unmodified(event, layout)};
}

std::string Keymap::unmodified(const QKeyEvent& event, std::uint32_t layout) const {
    const std::uint32_t code = event.nativeScanCode();
    if (!keymap_ || code == 0) return event.text().toStdString();
    const std::uint32_t modifiers = event.nativeModifiers() & modifierBits;
    const std::string text = textOf(keymap_.get(), code, modifiers, layout);
    if (text.empty() || hasLatinLetters(keymap_.get(), layout)) return text;
    // Its own signs stay what they are; on the keys of letters, and where it has letters of its
    // own, the Latin layout counts.
    const std::string other = latin(code, modifiers);
    const bool isLetter = other.size() == 1 && isLatinLetter(static_cast<unsigned char>(other[0]));
    return isLetter || (!isAscii(text) && isAscii(other)) ? other : text;
}

std::string Keymap::latin(std::uint32_t code, std::uint32_t modifiers) const {
    xkb_keymap* map = keymap_.get();
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(map); ++layout)
        if (hasLatinLetters(map, layout)) return textOf(map, code, modifiers, layout);
    xkb_keymap* us = usKeymap();
    return us ? textOf(us, code, modifiers, 0) : std::string();
}

xkb_keymap* Keymap::usKeymap() const {
    if (us_) return us_.get();
    const XkbContext context = makeContext(XKB_CONTEXT_NO_FLAGS);
    if (!context) return nullptr;
    xkb_rule_names names{};
    names.rules = "evdev";
    names.layout = "us";
    us_.reset(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    return us_.get();
}

}  // namespace noonward
