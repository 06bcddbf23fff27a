#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace noonward::test {

/// A program that a test has started; it ends with this object.
class Process {
 public:
    /// What its environment holds; none for this process's own.
    using Environment = std::optional<std::map<std::string, std::string>>;

    /// Both its outputs go to the file, or nowhere.
    explicit Process(std::vector<std::string> words, const Environment& environment = std::nullopt,
                     const std::string& outputs = "/dev/null")
        : id_(::fork()) {
        if (id_ == 0) become(std::move(words), environment, outputs);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process() { stop(); }

    pid_t id() const { return id_; }

    void signal(int number) const {
        if (id_ > 0 && !status_) ::kill(id_, number);
    }

    /// How it ended, as `waitpid` tells; nothing while it runs.
    std::optional<int> status() {
        int status = 0;
        if (!status_ && id_ > 0 && ::waitpid(id_, &status, WNOHANG) == id_) status_ = status;
        return status_;
    }

    void stop() {
        if (id_ <= 0 || status()) return;
        signal(SIGTERM);
        int status = 0;
        ::waitpid(id_, &status, 0);
        status_ = status;
    }

 private:
    [[noreturn]] static void become(std::vector<std::string> words, const Environment& environment,
                                    const std::string& outputs) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        ::signal(SIGHUP, SIG_DFL);  // tests may be run so that they outlive their terminal
        ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
        const int to = ::open(outputs.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        ::dup2(to, STDOUT_FILENO);
        ::dup2(to, STDERR_FILENO);
        if (environment) {
            ::clearenv();
            for (const auto& [name, value] : *environment)
                ::setenv(name.c_str(), value.c_str(), 1);
        }
        std::vector<char*> arguments(words.size() + 1, nullptr);
        std::transform(words.begin(), words.end(), arguments.begin(),
                       [](std::string& word) { return word.data(); });
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }

    pid_t id_;
    std::optional<int> status_;
};

}  // namespace noonward::test
