#pragma once

#include <QObject>

#include "platform/PressesElsewhere.h"
#include "platform/linux/X11.h"

namespace noonward {

/// Presses as the X server reports them before any window gets them (XInput 2, raw events). The
/// server is asked for them only while somebody listens.
///
/// A server inside a Wayland compositor reports none of those in Wayland windows. There a
/// window's losing the keyboard stands in for them.
class X11PressesElsewhere final : public PressesElsewhere {
 public:
    explicit X11PressesElsewhere(X11& x11);  ///< which must outlive this object
    [[nodiscard]] Subscription onPress(std::function<void()> action) override;

    /// The keyboard has left for another program: inside a Wayland compositor that is a press.
    void keysLeft();

 private:
    void select(bool wanted);
    bool isPress(const xcb_generic_event_t& event, std::uint8_t type) const;
    bool isElsewhere() const;

    X11& x11_;
    std::uint8_t extension_ = 0;  // XInput's number; 0 without it
    int listeners_ = 0;
    Announcer presses_;
    QObject context_;
    Subscription events_;
};

}  // namespace noonward
