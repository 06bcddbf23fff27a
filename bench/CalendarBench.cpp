// Local hour, minute, weekday and day of an instant: the strips of six places, hour by hour.

#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <array>
#include <memory>
#include <vector>

#include "Ratios.h"
#include "time/Calendar.h"

namespace noonward::bench {
namespace {

constexpr std::array zones = {"Europe/London",       "America/New_York", "Asia/Kolkata",
                              "America/Los_Angeles", "Africa/Cairo",     "Australia/Sydney"};
constexpr int hoursShown = 24;

Instant stripStart(bool overChange) {
    const std::chrono::year_month_day day(std::chrono::year(2026), std::chrono::month(3),
                                          std::chrono::day(overChange ? 29 : 17));
    return std::chrono::sys_days(day);
}

void ours(benchmark::State& state) {
    std::vector<Calendar> calendars;
    for (const char* zone : zones)
        calendars.emplace_back(*TimeZone::find(zone));
    const Instant start = stripStart(state.range(0) != 0);
    for (auto _ : state) {
        for (const Calendar& calendar : calendars) {
            for (int hour = 0; hour < hoursShown; ++hour) {
                benchmark::DoNotOptimize(calendar.local(start + hours(hour)));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * hoursShown * static_cast<int>(zones.size()));
}
BENCHMARK(ours)->ArgName("change")->Arg(0)->Arg(1);

void icu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    std::vector<std::unique_ptr<icu::Calendar>> calendars;
    for (const char* zone : zones) {
        calendars.push_back(std::make_unique<icu::GregorianCalendar>(
            icu::TimeZone::createTimeZone(zone), icu::Locale::getUK(), status));
    }
    const Instant start = stripStart(state.range(0) != 0);
    for (auto _ : state) {
        for (const auto& calendar : calendars) {
            for (int hour = 0; hour < hoursShown; ++hour) {
                const Instant at = start + hours(hour);
                calendar->setTime(static_cast<double>(at.time_since_epoch().count()) / 1000,
                                  status);
                for (const auto field : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_DAY_OF_WEEK, UCAL_YEAR,
                                         UCAL_MONTH, UCAL_DATE}) {
                    benchmark::DoNotOptimize(calendar->get(field, status));
                }
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * hoursShown * static_cast<int>(zones.size()));
}
BENCHMARK(icu)->ArgName("change")->Arg(0)->Arg(1);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    return noonward::bench::run(
        argc, argv,
        {{"zones", "ours/change:0", "icu/change:0", "ICU", 0.25},
         {"zones on a change day", "ours/change:1", "icu/change:1", "ICU", 0.25}});
}
