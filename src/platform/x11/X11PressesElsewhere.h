#pragma once

#include <QObject>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "platform/PressesElsewhere.h"
#include "platform/x11/X11.h"

namespace noonward {

/// Presses as the X server reports them before any window gets them (XInput 2, raw events). The
/// server is asked for them only while somebody listens.
///
/// Where the pointer is by the time a press is read says nothing of where it was pressed. But a
/// press in a window of ours comes to that window right after the raw one, and of the same time:
/// a note to ourselves, sent by way of the server, arrives after it, and then it is known whose the
/// press was.
///
/// A server inside a Wayland compositor reports none of those in Wayland windows. There a
/// window's losing the keyboard stands in for them.
class X11PressesElsewhere final : public PressesElsewhere {
 public:
    explicit X11PressesElsewhere(X11& x11);  ///< which must outlive this object
    ~X11PressesElsewhere() override;
    [[nodiscard]] Subscription onPress(std::function<void()> action) override;

    /// The keyboard has left for another program: inside a Wayland compositor that is a press.
    void keysLeft();

    /// Runs `step` from the event loop, once it is known whose the presses were that have been read
    /// so far, and after those elsewhere have been told of. Dropped with the last listener.
    void whenDecided(std::function<void()> step);

 private:
    void select(bool wanted);
    void watch(const xcb_generic_event_t& event, std::uint8_t type);
    void watchInput(const xcb_generic_event_t& event);
    void sendNote(xcb_timestamp_t time);

    X11& x11_;
    std::uint8_t extension_ = 0;  // XInput's number; 0 without it
    xcb_window_t mailbox_ = XCB_WINDOW_NONE;
    struct Press {
        xcb_timestamp_t time;
        bool isOwn;
    };
    std::deque<Press> open_;                      // those whose note has not come yet
    std::vector<std::function<void()>> waiting_;  // for that to be empty
    int listeners_ = 0;
    Announcer presses_;
    QObject context_;
    Subscription events_;
};

}  // namespace noonward
