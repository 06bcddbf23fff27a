// A load of places.json that has to tidy and save, and a save alone: six places, 3 KB.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "Ratios.h"
#include "config/ConfigFile.h"
#include "config/ConfigJson.h"

namespace noonward::bench {
namespace {

constexpr double budget = 150;  // microseconds of CPU

Config sixPlaces(const TimeZone& here) {
    Config config = Config::defaults(here);
    for (const char* name : {"San Francisco", "São Paulo"})
        config.places.push_back({.label = name, .shortName = "SFO", .zone = "America/Sao_Paulo"});
    for (Place& place : config.places) {
        place.work = {{8.5, 17}};
        place.workdays = {{2, 3, 4, 5}};
        auto& days = place.daysOff.emplace();
        for (int day = 10; day < 20; ++day)
            days.push_back("2026-12-" + std::to_string(day));
    }
    return config;
}

class Folder {
 public:
    explicit Folder(const std::filesystem::path& below) {
        std::string name = below / "noonward-bench-XXXXXX";
        if (!::mkdtemp(name.data())) std::abort();
        path_ = name;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }

    ConfigPaths paths() const { return {path_ / "places.json", {}}; }

 private:
    std::filesystem::path path_;
};

// The program's own share shows where the disk is memory; on a real one the kernel's for creating,
// flushing and removing comes on top.
const std::filesystem::path memory = "/dev/shm";
const std::filesystem::path disk = std::filesystem::temp_directory_path();

void loadTidySave(benchmark::State& state, const std::filesystem::path& below) {
    const TimeZone here = TimeZone::find("Asia/Kolkata").value();
    const Folder folder(below);
    Config untidy = sixPlaces(here);
    untidy.favourites.emplace_back("Tokyo");
    const std::string text = encodeConfig(untidy);
    for (auto _ : state) {
        state.PauseTiming();
        std::ofstream(folder.paths().file) << text;
        state.ResumeTiming();
        benchmark::DoNotOptimize(ConfigFile(folder.paths()).load(here));
    }
}
BENCHMARK_CAPTURE(loadTidySave, memory, memory)->Unit(benchmark::kMicrosecond)->Repetitions(3);
BENCHMARK_CAPTURE(loadTidySave, disk, disk)->Unit(benchmark::kMicrosecond)->Repetitions(3);

void load(benchmark::State& state) {
    const TimeZone here = TimeZone::find("Asia/Kolkata").value();
    const Folder folder(memory);
    ConfigFile(folder.paths()).save(sixPlaces(here));
    for (auto _ : state)
        benchmark::DoNotOptimize(ConfigFile(folder.paths()).load(here));
}
BENCHMARK(load)->Unit(benchmark::kMicrosecond);

void save(benchmark::State& state) {
    const TimeZone here = TimeZone::find("Asia/Kolkata").value();
    const Folder folder(memory);
    ConfigFile file(folder.paths());
    const Config config = sixPlaces(here);
    for (auto _ : state)
        file.save(config);
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    noonward::bench::KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto own = reporter.time("loadTidySave/memory/repeats:3");
    const auto all = reporter.time("loadTidySave/disk/repeats:3");
    if (!own || !all) return 1;
    std::printf("on this disk %.0f µs\n", *all);
    return noonward::bench::keepsBudget("places.json load, tidy, save", *own, "µs of CPU",
                                        noonward::bench::budget)
               ? 0
               : 1;
}
