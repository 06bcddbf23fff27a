#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "Budget.h"

namespace noonward::bench {

/// How often any thread has gone to sleep since it began: it has woken as often.
inline long sleeps(pid_t pid) {
    long all = 0;
    const std::string tasks = "/proc/" + std::to_string(pid) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream file(task.path() / "status");
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with("voluntary_ctxt_switches:")) all += std::stol(line.substr(24));
        }
    }
    return all;
}

inline double cpuSeconds(pid_t pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/schedstat");
    double nanoseconds = 0;
    file >> nanoseconds;
    return nanoseconds / 1e9;
}

/// Watches a program that nobody uses.
inline bool keepsRest(pid_t pid, int seconds) {
    const long sleptBefore = sleeps(pid);
    const double cpuBefore = cpuSeconds(pid);
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const auto slept = static_cast<double>(sleeps(pid) - sleptBefore);
    const bool kept = keepsBudget("wakeups at rest", slept * 60 / seconds, "a minute", 6);
    return keepsBudget("CPU at rest", (cpuSeconds(pid) - cpuBefore) * 100 / seconds, "%", 0.02) &&
           kept;
}

}  // namespace noonward::bench
