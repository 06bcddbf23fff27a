#pragma once

#include <sys/types.h>

#include <fstream>
#include <string>

namespace noonward::test {

/// What a process keeps in memory for itself alone, in KiB (proc(5), smaps_rollup); 0 if it is
/// gone.
inline double privateDirtyKiB(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("Private_Dirty:")) return std::stod(line.substr(14));
    }
    return 0;
}

}  // namespace noonward::test
