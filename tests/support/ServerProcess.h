#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

namespace noonward::test {

/// A server of the desktop's, for one test process alone. It is ready when it has written a line
/// to the descriptor that its command names.
class ServerProcess {
 public:
    using Command = std::function<std::vector<std::string>(const std::string& readyEnd)>;

    explicit ServerProcess(const Command& command) {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0) return;
        child_ = ::fork();
        if (child_ == 0) {
            ::close(ends[0]);
            serve(command(std::to_string(ends[1])));
        }
        ::close(ends[1]);
        for (char each = 0; ::read(ends[0], &each, 1) == 1 && each != '\n';)
            line_ += each;
        ::close(ends[0]);
    }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;
    ~ServerProcess() { stop(); }

    /// What it said when it was ready; empty if it could not be started.
    const std::string& line() const { return line_; }

    void stop() {
        if (child_ <= 0) return;
        ::kill(child_, SIGTERM);
        ::waitpid(child_, nullptr, 0);
        child_ = -1;
    }

 private:
    [[noreturn]] static void serve(std::vector<std::string> words) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int silence = ::open("/dev/null", O_RDWR);
        ::dup2(silence, STDOUT_FILENO);
        ::dup2(silence, STDERR_FILENO);
        std::vector<char*> arguments(words.size() + 1, nullptr);
        std::transform(words.begin(), words.end(), arguments.begin(),
                       [](std::string& word) { return word.data(); });
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }

    pid_t child_ = -1;
    std::string line_;
};

}  // namespace noonward::test
