#pragma once

#include "platform/WindowSystem.h"
#include "platform/x11/X11Focus.h"
#include "platform/x11/X11Stack.h"

namespace noonward {

/// Windows on an X server, past any window manager: override-redirect windows are the only ones
/// that all of them leave alone.
class X11WindowSystem final : public WindowSystem {
 public:
    /// All must outlive this object.
    X11WindowSystem(X11& x11, X11Stack& stack, X11PressesElsewhere& presses);

    Translucency translucency() const override;
    void adopt(QWidget& window, Level level) override;
    void raise(QWidget& window) override;
    void setInputRegion(QWidget& window, const QRegion& region) override;
    void setBlurBehind(QWidget& window, const QRegion& region) override;
    void takeKeys(QWidget& window) override;
    void giveKeysBack(QWidget& window) override;

 private:
    X11& x11_;
    X11Stack& stack_;
    X11Focus focus_;
    QObject context_;
};

}  // namespace noonward
