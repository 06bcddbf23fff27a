#pragma once

#include <QTimer>

#include "platform/linux/NotchedScreens.h"
#include "platform/x11/X11.h"

namespace noonward {

/// The monitors of an X server. The status bar is what the window manager keeps free at the top
/// (EWMH, _NET_WORKAREA).
class X11Screens final : public NotchedScreens {
 public:
    explicit X11Screens(X11& x11);  ///< which must outlive this object
    double statusBarThickness() const override;
    /// GNOME Shell's lies there, by the window manager's name (EWMH, _NET_SUPPORTING_WM_CHECK).
    bool hasOwnClock() const override;

 private:
    X11& x11_;
    QTimer settling_;
    Subscription events_;
};

}  // namespace noonward
