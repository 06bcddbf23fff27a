#pragma once

#include <QObject>

#include "platform/x11/X11.h"

namespace noonward {

/// Whether the user has moved the pointer, wherever it went and came back to (XInput 2, raw
/// events). The server is asked for one motion and no more.
class X11Motion {
 public:
    explicit X11Motion(X11& x11);  ///< which must outlive this object
    ~X11Motion();

    void watch();  ///< counts from now on
    void stop();
    bool hasMoved() const { return hasMoved_; }

 private:
    void take(const xcb_generic_event_t& event, std::uint8_t type);
    void select(bool wanted);

    X11& x11_;
    std::uint8_t extension_ = 0;  // XInput's number; 0 without it
    std::uint16_t device_ = 0;    // the pointer that the server takes for ours
    bool isSelected_ = false;
    bool hasMoved_ = false;
    Subscription events_;
};

}  // namespace noonward
