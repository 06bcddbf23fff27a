#pragma once

#include <QPoint>
#include <QRect>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "live/Sight.h"
#include "support/OtherClient.h"

namespace noonward::test {

/// What an X server tells of the program besides: its windows.
class X11Sight final : public Sight {
 public:
    explicit X11Sight(const char* display);

    struct Window {
        xcb_window_t id;
        QRect frame;  ///< where the pointer can meet it; its shadow lies outside
    };
    /// The program's windows that are on the screen, from back to front. What it lays there to
    /// notice the pointer is none.
    std::vector<Window> windows();
    /// How many of them have been shown since the last call.
    int shown();

    /// Whether something lies there that takes the pointer and is nobody's window.
    bool isTrapAt(const QRect& where);

    xcb_window_t focused() { return client_.focused(); }
    bool isViewable(xcb_window_t window);

 private:
    std::vector<std::uint8_t> pixels(const QRect& where) override { return client_.pixels(where); }
    bool isProgram(xcb_window_t window);
    QRect inputFrame(xcb_window_t window, const QRect& geometry);
    std::optional<QRect> geometry(xcb_window_t window);

    OtherClient client_;
};

}  // namespace noonward::test
