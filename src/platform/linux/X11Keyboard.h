#pragma once

#include <memory>

#include "platform/Keyboard.h"
#include "platform/linux/X11.h"

struct xkb_context;
struct xkb_keymap;

namespace noonward {

/// The keyboard of an X server, read through its own keymap. Under a layout without Latin letters
/// the keys that make commands are those of the keymap's first layout that has them, or else of a
/// US keyboard.
class X11Keyboard final : public Keyboard {
 public:
    explicit X11Keyboard(X11& x11);  ///< which must outlive this object
    ~X11Keyboard() override;

    /// Events that no key made (an input method's, say) are read by their text alone.
    KeyPress read(const QKeyEvent& event) const override;

 private:
    struct Release {
        void operator()(xkb_context* context) const;
        void operator()(xkb_keymap* keymap) const;
    };

    xkb_keymap* keymap() const;
    xkb_keymap* usKeymap() const;
    std::string unmodified(const QKeyEvent& event) const;
    std::string latin(std::uint32_t code, std::uint32_t modifiers) const;

    X11& x11_;
    // Fetched when a key is read, and again after the desktop has changed it.
    mutable std::unique_ptr<xkb_context, Release> context_;
    mutable std::unique_ptr<xkb_keymap, Release> keymap_;
    mutable std::unique_ptr<xkb_keymap, Release> usKeymap_;
    Subscription changes_;
};

}  // namespace noonward
