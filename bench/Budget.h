#pragma once

#include <cstdio>
#include <string>

namespace noonward::bench {

/// Prints a line of the budget, as scripts/bench.sh reads it; false when more was used than there
/// is.
inline bool keepsBudget(const std::string& what, double measured, const std::string& unit,
                        double budget) {
    std::printf("%s: %.3g %s (budget %g)\n", what.c_str(), measured, unit.c_str(), budget);
    std::fflush(stdout);
    return measured <= budget;
}

}  // namespace noonward::bench
