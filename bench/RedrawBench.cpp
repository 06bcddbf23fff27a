// What one whole redraw of the ribbon asks of the model: eight rows of 28 cells with their headers,
// the marks, the bar's texts. Asked as a view asks: anew for each cell.

#include <chrono>
#include <optional>
#include <string>

#include "Ratios.h"
#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "model/Store.h"

namespace noonward::bench {
namespace {

constexpr double budgetMicroseconds = 100;

class StillClock final : public Clock {
 public:
    Instant now() const override {
        return std::chrono::sys_days(std::chrono::year(2026) / 3 / 17) + hours(14) + minutes(20);
    }
};

class ComputerInTokyo final : public SystemZone {
 public:
    TimeZone current() const override { return zone_; }
    void resetSystemTimeZone() override {}

 private:
    TimeZone zone_ = *TimeZone::find("Asia/Tokyo");
};

class NoTimer final : public RepeatingTimer {
    Subscription every(std::chrono::milliseconds /*interval*/,
                       std::function<void()> /*action*/) override {
        return {};
    }
};

class NoZoneChanges final : public ZoneChanges {
    Subscription subscribe(std::function<void()> /*listener*/) override { return {}; }
};

/// A traveller who plans from a seventh zone, with the UTC row.
void travel(Config& config) {
    config.places = {{.label = "London", .shortName = "LON", .zone = "Europe/London", .home = true},
                     {.label = "New York", .shortName = "NYC", .zone = "America/New_York"},
                     {.label = "Bengaluru", .shortName = "BEN", .zone = "Asia/Kolkata"},
                     {.label = "Cairo", .shortName = "CAI", .zone = "Africa/Cairo"},
                     {.label = "Kathmandu", .shortName = "KTM", .zone = "Asia/Kathmandu"},
                     {.label = "Sydney", .shortName = "SYD", .zone = "Australia/Sydney"}};
    config.homeZones = {"Europe/London"};
    config.travel = Travel{"Asia/Tokyo", true};
}

void askForRow(const Store& store, const Row& row) {
    benchmark::DoNotOptimize(store.isHidden(row));
    const Instant focus = store.focus();
    benchmark::DoNotOptimize(store.time(focus, row));
    benchmark::DoNotOptimize(store.date(focus, row));
    benchmark::DoNotOptimize(store.diff(row, focus));
    benchmark::DoNotOptimize(row.abbr(focus));
    benchmark::DoNotOptimize(store.dayOff(row, focus));
    const int minute = row.cal.local(store.dayStart()).minute;
    for (int cell = -2; cell <= 25; ++cell) {
        const Instant at = store.dayStart() + hours(cell) - minutes(minute);
        const LocalTime local = row.cal.local(at);
        benchmark::DoNotOptimize(store.phase(row, at, true));
        benchmark::DoNotOptimize(store.hourLabel(local.hour));
    }
}

void redraw(benchmark::State& state) {
    const StillClock clock;
    ComputerInTokyo zone;
    ConfigFile file({}, ConfigFile::Access::readOnly);
    Holidays holidays({}, clock, nullptr);
    NoTimer timer;
    NoZoneChanges zoneChanges;
    Store store({clock, zone, file, holidays, timer, zoneChanges});
    store.change(travel);
    store.change([&](Config& config) { config.rolling = state.range(0) != 0; });
    store.format = HourFormat::utc;
    store.propose(9);
    if (store.rows().size() != 8) state.SkipWithError("not the rows that were meant");
    for (auto _ : state) {
        for (const Row& row : store.rows())
            askForRow(store, row);
        const Instant fair = store.instant(store.fairestCol());
        benchmark::DoNotOptimize(store.columns().contains(store.fairestCol()));
        benchmark::DoNotOptimize(store.date(store.shownDay(), store.homeRow()));
        benchmark::DoNotOptimize(store.summary(fair));
        benchmark::DoNotOptimize(store.range(*store.proposal(), store.homeRow()));
        benchmark::DoNotOptimize(store.emailText(*store.proposal()));
        benchmark::DoNotOptimize(store.travelUndecided());
    }
}
BENCHMARK(redraw)->ArgName("rolling")->Arg(0)->Arg(1);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    noonward::bench::KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool kept = true;
    for (const auto& [name, what] : {std::pair{"redraw/rolling:0", "model queries of a redraw"},
                                     {"redraw/rolling:1", "model queries of a rolling redraw"}}) {
        const auto nanoseconds = reporter.time(name);
        kept &= nanoseconds && noonward::bench::keepsBudget(what, *nanoseconds / 1000, "µs",
                                                            noonward::bench::budgetMicroseconds);
    }
    return kept ? 0 : 1;
}
