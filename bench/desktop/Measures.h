#pragma once

#include <sys/types.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace noonward::bench {

/// Of at least one value.
inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// What a process keeps in memory for itself alone, in KiB (proc(5), smaps_rollup); 0 if it is
/// gone.
inline double privateDirtyKiB(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("Private_Dirty:")) return std::stod(line.substr(14));
    }
    return 0;
}

}  // namespace noonward::bench
