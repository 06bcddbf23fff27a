#pragma once

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/OtherClient.h"
#include "support/ServerProcess.h"

namespace noonward::bench {

/// A private X server with a user in front of it.
class LiveServer {
 public:
    LiveServer() {
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(user_.connection(), user_.root(), XCB_CW_EVENT_MASK, &mask);
        user_.sync();
    }

    const std::string& display() const { return display_; }

    void forgetEvents() {
        user_.sync();
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(user_.connection())}) {
        }
    }
    void waitForMapping() {
        while (const Reply<xcb_generic_event_t> event{xcb_wait_for_event(user_.connection())})
            if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY) return;
        throw std::runtime_error("the X server is gone");
    }

    void movePointer(int x, int y) { user_.movePointer({x, y}); }
    /// Presses all, one after the other, and lets go of them, without a pause.
    void strike(const std::vector<std::uint8_t>& codes) {
        constexpr std::uint8_t types[] = {XCB_KEY_PRESS, XCB_KEY_RELEASE};
        for (const std::uint8_t type : types)
            for (const std::uint8_t code : codes)
                xcb_test_fake_input(user_.connection(), type, code, XCB_CURRENT_TIME, user_.root(),
                                    0, 0, 0);
        xcb_flush(user_.connection());
    }

    std::vector<std::uint8_t> pixel(int x, int y) { return user_.pixels({x, y, 1, 1}); }

 private:
    static std::string started(const test::ServerProcess& server) {
        if (server.line().empty()) throw std::runtime_error("no X server");
        return ":" + server.line();
    }

    test::ServerProcess server_{[](const std::string& readyEnd) {
        return std::vector<std::string>{"Xvfb", "-displayfd",  readyEnd,    "-screen",
                                        "0",    "1600x900x24", "-nolisten", "tcp"};
    }};
    std::string display_ = started(server_);
    test::OtherClient user_{display_.c_str()};
};

}  // namespace noonward::bench
