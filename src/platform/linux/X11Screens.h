#pragma once

#include <QTimer>

#include "platform/QtScreens.h"
#include "platform/linux/NotchedLaptops.h"
#include "platform/linux/X11.h"

namespace noonward {

/// The monitors of an X server. The status bar is what the window manager keeps free at the top
/// (EWMH, _NET_WORKAREA).
class X11Screens final : public QtScreens {
 public:
    explicit X11Screens(X11& x11);  ///< which must outlive this object
    double statusBarThickness() const override;

 protected:
    void addNotch(Screen& screen, const QScreen& described) const override;

 private:
    X11& x11_;
    std::optional<NotchedDisplay> notched_ = notchedDisplay();
    QTimer settling_;
    Subscription events_;
};

}  // namespace noonward
