#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace noonward::bench {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// A process that ends with this object.
class Process {
 public:
    Process(const std::vector<std::string>& command,
            const std::map<std::string, std::string>& environment, int output = -1)
        : pid_(fork()) {
        if (pid_ != 0) return;
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        if (output >= 0) dup2(output, STDOUT_FILENO);
        std::vector<char*> arguments;
        for (const std::string& argument : command)
            arguments.push_back(const_cast<char*>(argument.c_str()));
        arguments.push_back(nullptr);
        execvp(arguments.front(), arguments.data());
        _exit(127);
    }
    ~Process() {
        kill(pid_, SIGTERM);
        waitpid(pid_, nullptr, 0);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t pid() const { return pid_; }

 private:
    pid_t pid_;
};

/// A process and the first line it writes.
class Service {
 public:
    explicit Service(const std::vector<std::string>& command) {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error("no pipe");
        process_ =
            std::make_unique<Process>(command, std::map<std::string, std::string>(), ends[1]);
        close(ends[1]);
        for (char letter = 0; read(ends[0], &letter, 1) == 1 && letter != '\n';)
            line_ += letter;
        close(ends[0]);
        if (line_.empty()) throw std::runtime_error("cannot start " + command.front());
    }
    const std::string& line() const { return line_; }

 private:
    std::unique_ptr<Process> process_;
    std::string line_;
};

/// A private X server with a user in front of it.
class LiveServer {
 public:
    LiveServer()
        : server_({"Xvfb", "-displayfd", "1", "-screen", "0", "1600x900x24", "-nolisten", "tcp"}),
          display_(":" + server_.line()),
          connection_(xcb_connect(display_.c_str(), nullptr)) {
        if (xcb_connection_has_error(connection_)) throw std::runtime_error("no X server");
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection_);
    }
    ~LiveServer() { xcb_disconnect(connection_); }
    LiveServer(const LiveServer&) = delete;
    LiveServer& operator=(const LiveServer&) = delete;

    const std::string& display() const { return display_; }
    xcb_window_t root() const {
        return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }

    void forgetEvents() {
        sync();
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection_))
            std::free(event);
    }
    void waitForMapping() {
        while (xcb_generic_event_t* event = xcb_wait_for_event(connection_)) {
            const bool mapped = (event->response_type & 0x7F) == XCB_MAP_NOTIFY;
            std::free(event);
            if (mapped) return;
        }
        throw std::runtime_error("the X server is gone");
    }

    void movePointer(int x, int y) { fake(XCB_MOTION_NOTIFY, 0, x, y); }
    void key(std::uint8_t code, bool down) {
        fake(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code, 0, 0);
    }

    std::uint32_t pixel(int x, int y) {
        const auto cookie =
            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root(),
                          static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
            xcb_get_image_reply(connection_, cookie, nullptr), &std::free);
        return reply ? *reinterpret_cast<std::uint32_t*>(xcb_get_image_data(reply.get())) : 0;
    }

    void sync() {
        std::free(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    }

 private:
    void fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
        xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, root(),
                            static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
        xcb_flush(connection_);
    }

    Service server_;
    std::string display_;
    xcb_connection_t* connection_;
};

}  // namespace noonward::bench
