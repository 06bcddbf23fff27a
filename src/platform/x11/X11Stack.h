#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <vector>

#include "platform/x11/X11.h"

namespace noonward {

/// Keeps windows of ours in front of other programs' ordinary ones, with or without a window
/// manager. What other programs put in front on purpose (override-redirect windows) stays there.
class X11Stack {
 public:
    /// From back to front. Our menus and tooltips, which nobody names here, are in front of all.
    enum class Layer { trigger, panel, cap };

    explicit X11Stack(X11& x11);  ///< which must outlive this object

    void keep(xcb_window_t window, Layer layer);
    void forget(xcb_window_t window);
    /// Puts a kept window in front of all but the layers before its own.
    void raise(xcb_window_t window);

 private:
    struct Kept {
        xcb_window_t window;
        Layer layer;
    };

    void watch(const xcb_generic_event_t& event, std::uint8_t type);
    void settleSoon();
    void settle();
    bool mayAct();
    std::vector<xcb_window_t> children() const;
    xcb_window_t foremostOrdinary() const;
    std::vector<xcb_window_t> inOrder() const;

    X11& x11_;
    std::vector<Kept> kept_;  // from back to front
    // The latest change of place seen: a window that is dragged says the same again and again.
    xcb_configure_notify_event_t last_{};
    bool pending_ = false;
    QElapsedTimer period_;
    int actions_ = 0;  // in this period
    QObject context_;
    Subscription events_;
};

}  // namespace noonward
