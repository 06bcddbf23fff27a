#pragma once

#include <benchmark/benchmark.h>

#include <initializer_list>
#include <map>
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
            const double time = run.GetAdjustedCPUTime();
            const auto [kept, added] = times_.emplace(name, time);
            if (!added && time < kept->second) kept->second = time;  // repetitions: the best one
        }
        ConsoleReporter::ReportRuns(runs);
    }

    double time(const std::string& name) const {
        const auto found = times_.find(name);
        return found == times_.end() ? 0 : found->second;
    }

 private:
    std::map<std::string, double> times_;
};

/// Runs the benchmarks and prints a line for each ratio; fails when one is over its budget.
inline int run(int argc, char** argv, std::initializer_list<Ratio> ratios) {
    benchmark::Initialize(&argc, argv);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool kept = true;
    for (const Ratio& ratio : ratios) {
        const double theirs = reporter.time(ratio.theirs);
        if (theirs <= 0) continue;  // filtered out
        const double value = reporter.time(ratio.ours) / theirs;
        kept &= keepsBudget(ratio.subject, value, "x " + ratio.theirName, ratio.budget);
    }
    return kept ? 0 : 1;
}

}  // namespace noonward::bench
