#pragma once

#include "platform/linux/Keymap.h"
#include "platform/x11/X11.h"

namespace noonward {

/// The keyboard of an X server, read through its own keymap.
class X11Keyboard final : public Keyboard {
 public:
    explicit X11Keyboard(X11& x11);  ///< which must outlive this object

    KeyPress read(const QKeyEvent& event) const override;

 private:
    XkbKeymap fetch() const;

    X11& x11_;
    // Fetched when a key is read, and again after the desktop has changed it.
    mutable XkbContext context_;
    mutable Keymap keymap_;
    Subscription changes_;
};

}  // namespace noonward
