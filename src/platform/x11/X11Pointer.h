#pragma once

#include <QObject>
#include <memory>

#include "platform/Pointer.h"
#include "platform/PointerPresence.h"
#include "platform/x11/X11Stack.h"

namespace noonward {

/// The pointer of an X server. It is waited for by a window over the zone that nobody sees and that
/// is gone as soon as the pointer is in it, so that the press goes to what lies below.
///
/// A server inside a Wayland compositor knows the pointer only while it is in an X window, and
/// where it was last afterwards. There the window over the zone stays until the pointer leaves it,
/// or else nothing could tell that the pointer rests; and only motion tells that the pointer is in
/// it.
class X11Pointer final : public Pointer {
 public:
    X11Pointer(X11& x11, X11Stack& stack);  ///< both must outlive this object
    ~X11Pointer() override;

    std::optional<QPointF> position() const override;
    void waitFor(const QRectF& zone, std::function<void()> entered) override;
    void stopWaiting() override;

 private:
    void arm();
    void disarm();
    void enteredZone();
    void watch(const xcb_generic_event_t& event, std::uint8_t type);
    void watchInsideWayland(const xcb_enter_notify_event_t& event, std::uint8_t type);
    void nameType() const;
    bool isKnown() const;
    std::optional<QPoint> pixel() const;
    xcb_window_t makeTransparent(const QRect& pixels);
    xcb_window_t makeInputOnly(const QRect& pixels);

    X11& x11_;
    X11Stack& stack_;
    std::unique_ptr<PointerPresence> presence_;  // only where the server does not tell itself
    bool isInTrigger_ = false;                   // likewise
    QRectF zone_;
    std::function<void()> entered_;
    std::uint64_t waits_ = 0;  // how many there have been: the number of this one
    xcb_window_t trigger_ = XCB_WINDOW_NONE;
    xcb_colormap_t colormap_ = XCB_NONE;
    QObject context_;
    Subscription events_;
    Subscription compositor_;
};

}  // namespace noonward
