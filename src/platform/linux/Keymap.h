#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Keyboard.h"

struct xkb_context;
struct xkb_keymap;

namespace noonward {

struct XkbRelease {
    void operator()(xkb_context* context) const;
    void operator()(xkb_keymap* keymap) const;
};
using XkbContext = std::unique_ptr<xkb_context, XkbRelease>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbRelease>;

/// A context for keymaps that somebody else has made: of what is wrong with them it says nothing.
/// Null without memory.
XkbContext makeXkbContext();

/// What the keys of a keyboard mean, by its keymap (libxkbcommon). Under a layout without Latin
/// letters the keys that make commands are those of the keymap's first layout that has them, or
/// else of a US keyboard.
class Keymap {
 public:
    /// A null one reads all keys by their text alone.
    explicit Keymap(XkbKeymap keymap = nullptr);
    explicit operator bool() const { return keymap_ != nullptr; }

    /// Events that no key made (an input method's, say) are read by their text alone. `layout`
    /// counts from 0.
    KeyPress read(const QKeyEvent& event, std::uint32_t layout) const;

 private:
    std::string unmodified(const QKeyEvent& event, std::uint32_t layout) const;
    std::string latin(std::uint32_t code, std::uint32_t modifiers) const;
    xkb_keymap* usKeymap() const;

    XkbKeymap keymap_;
    mutable XkbKeymap us_;  // since it was first needed
};

}  // namespace noonward
