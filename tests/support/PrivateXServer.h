#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace noonward::test {

/// An X server without a screen, for one test process alone.
class PrivateXServer {
 public:
    PrivateXServer() {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0) return;
        child_ = ::fork();
        if (child_ == 0) {
            ::close(ends[0]);
            serve(ends[1]);
        }
        ::close(ends[1]);
        for (char digit = 0; ::read(ends[0], &digit, 1) == 1 && digit != '\n';)
            number_ += digit;
        ::close(ends[0]);
    }
    PrivateXServer(const PrivateXServer&) = delete;
    PrivateXServer& operator=(const PrivateXServer&) = delete;
    ~PrivateXServer() {
        if (child_ <= 0) return;
        ::kill(child_, SIGTERM);
        ::waitpid(child_, nullptr, 0);
    }

    bool runs() const { return !number_.empty(); }
    std::string display() const { return ":" + number_; }

 private:
    [[noreturn]] static void serve(int readyEnd) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int silence = ::open("/dev/null", O_RDWR);
        ::dup2(silence, STDOUT_FILENO);
        ::dup2(silence, STDERR_FILENO);
        ::execlp("Xvfb", "Xvfb", "-displayfd", std::to_string(readyEnd).c_str(), "-screen", "0",
                 "1280x800x24", "-nolisten", "tcp", "-noreset", nullptr);
        ::_exit(127);
    }

    pid_t child_ = -1;
    std::string number_;
};

}  // namespace noonward::test
