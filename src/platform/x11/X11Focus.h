#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include "platform/x11/X11Motion.h"
#include "platform/x11/X11PressesElsewhere.h"

namespace noonward {

/// Borrows the keyboard for a window that no window manager knows, and gives it back.
class X11Focus {
 public:
    /// Both must outlive this object.
    X11Focus(X11& x11, X11PressesElsewhere& presses);

    /// Takes the keyboard for the window, or back for it: whoever has got it meanwhile is the one
    /// that it is given back to.
    void take(QWidget& window);
    void giveBack(QWidget& window);

 private:
    void watch(const xcb_generic_event_t& event, std::uint8_t type);
    void claim();
    bool set(xcb_timestamp_t time);
    void activate();
    void lose();
    void reclaim(xcb_window_t holder);
    xcb_window_t focused() const;
    xcb_window_t topLevelOf(xcb_window_t window) const;

    X11& x11_;
    X11PressesElsewhere& presses_;
    QPointer<QWidget> window_;  // who is to have the keys
    xcb_window_t before_ = XCB_WINDOW_NONE;
    bool awaitsMap_ = false;
    bool pressed_ = false;  // elsewhere, since the keys were taken: the user has turned away
    int reclaimsLeft_ = 0;
    QElapsedTimer claimed_;
    X11Motion motion_;  // since the latest claim
    QObject context_;
    Subscription events_;
    Subscription pressWatch_;
};

}  // namespace noonward
