#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Budget.h"

namespace noonward::bench {

/// Two benchmarks of one run, and what the first may cost of the second.
struct Ratio {
    std::string subject;
    std::string ours;
    std::string theirs;
    std::string theirName;
    double budget;
};

/// Shows the results as they come and keeps their times.
class KeepingReporter final : public benchmark::ConsoleReporter {
 public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string name = run.benchmark_name();
            const double time = run.error_occurred ? 0 : run.GetAdjustedCPUTime();
            const auto [kept, added] = times_.emplace(name, time);
            if (!added && time < kept->second) kept->second = time;  // repetitions: the best one
        }
        ConsoleReporter::ReportRuns(runs);
    }

    /// Nothing where it was not run, or not to its end; which is said.
    std::optional<double> time(const std::string& name) const {
        const auto found = times_.find(name);
        if (found != times_.end() && found->second > 0) return found->second;
        std::fprintf(stderr, "not measured: %s\n", name.c_str());
        return std::nullopt;
    }

 private:
    std::map<std::string, double> times_;
};

/// Runs the benchmarks and prints a line for each ratio; fails when one is over its budget, or
/// was not measured.
inline int run(int argc, char** argv, std::initializer_list<Ratio> ratios) {
    benchmark::Initialize(&argc, argv);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool kept = true;
    for (const Ratio& ratio : ratios) {
        const auto ours = reporter.time(ratio.ours);
        const auto theirs = reporter.time(ratio.theirs);
        kept &= ours && theirs &&
                keepsBudget(ratio.subject, *ours / *theirs, "x " + ratio.theirName, ratio.budget);
    }
    return kept ? 0 : 1;
}

}  // namespace noonward::bench
