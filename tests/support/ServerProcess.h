#pragma once

#include <unistd.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/Process.h"

namespace noonward::test {

/// A server of the desktop's, for one test process alone. It is ready when it has written a line
/// to the descriptor that its command names.
class ServerProcess {
 public:
    using Command = std::function<std::vector<std::string>(const std::string& readyEnd)>;

    explicit ServerProcess(const Command& command) {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0) return;
        process_.emplace(command(std::to_string(ends[1])));
        ::close(ends[1]);
        for (char each = 0; ::read(ends[0], &each, 1) == 1 && each != '\n';)
            line_ += each;
        ::close(ends[0]);
    }

    /// What it said when it was ready; empty if it could not be started.
    const std::string& line() const { return line_; }

    void signal(int number) const {
        if (process_) process_->signal(number);
    }

    void stop() { process_.reset(); }

 private:
    std::optional<Process> process_;
    std::string line_;
};

}  // namespace noonward::test
