// The fairest hour of a day for six places: ours, and by the rule on reused ICU calendars.

#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Ratios.h"
#include "model/FairestHour.h"
#include "model/Phase.h"

namespace noonward::bench {
namespace {

constexpr std::array zones = {"Europe/London",       "America/New_York", "Asia/Kolkata",
                              "America/Los_Angeles", "Africa/Cairo",     "Australia/Sydney"};

class YearOfHolidays final : public HolidayLookup {
 public:
    YearOfHolidays() {
        for (const char* country : {"GB", "US", "IN", "EG", "AU"})
            for (int month = 1; month <= 12; ++month)
                days_[country][DayKey(2026, month, month + 3)] = {.name = "a holiday"};
    }

    const Holiday* holiday(const std::string& country, DayKey day) const override {
        const auto days = days_.find(country);
        if (days == days_.end()) return nullptr;
        const auto found = days->second.find(day);
        return found == days->second.end() ? nullptr : &found->second;
    }

 private:
    std::map<std::string, std::map<DayKey, Holiday>> days_;
};

std::vector<Row> sixRows() {
    std::vector<Row> rows;
    for (const char* zone : zones)
        rows.emplace_back(static_cast<int>(rows.size()), Place{.label = zone},
                          *TimeZone::find(zone), rows.empty());
    return rows;
}

Strip stripOfDay(bool overChange) {
    const std::chrono::year_month_day day(std::chrono::year(2026), std::chrono::month(3),
                                          std::chrono::day(overChange ? 29 : 17));
    return {.dayStart = std::chrono::sys_days(day)};
}

void ours(benchmark::State& state) {
    const auto rows = sixRows();
    const YearOfHolidays holidays;
    const Strip strip = stripOfDay(state.range(0) != 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(fairestCol(rows, strip, strip.columns(), holidays));
}
BENCHMARK(ours)->ArgName("change")->Arg(0)->Arg(1);

double scoreOnCalendar(const Row& row, icu::Calendar& calendar, Instant at,
                       const HolidayLookup& holidays) {
    UErrorCode status = U_ZERO_ERROR;
    calendar.setTime(static_cast<double>(at.time_since_epoch().count()) / 1000, status);
    const double hour =
        calendar.get(UCAL_HOUR_OF_DAY, status) + calendar.get(UCAL_MINUTE, status) / 60.0;
    const DayKey day(calendar.get(UCAL_YEAR, status), calendar.get(UCAL_MONTH, status) + 1,
                     calendar.get(UCAL_DATE, status));
    const auto off = offDay(row, day, calendar.get(UCAL_DAY_OF_WEEK, status), holidays);
    const double penalty = !off ? 0 : off->off() ? 4 : 1;
    return hoursFromWork(row.work, hour) + penalty;
}

void icu(benchmark::State& state) {
    const auto rows = sixRows();
    const YearOfHolidays holidays;
    const Strip strip = stripOfDay(state.range(0) != 0);
    UErrorCode status = U_ZERO_ERROR;
    std::vector<std::unique_ptr<icu::Calendar>> calendars;
    for (const char* zone : zones)
        calendars.push_back(std::make_unique<icu::GregorianCalendar>(
            icu::TimeZone::createTimeZone(zone), icu::Locale::getUK(), status));
    for (auto _ : state) {
        int best = 0;
        double bestWorst = std::numeric_limits<double>::infinity();
        double bestTotal = 0;
        for (int column = 0; column < 24; ++column) {
            double worst = 0;
            double total = 0;
            for (std::size_t i = 0; i < rows.size(); ++i) {
                const double score =
                    scoreOnCalendar(rows[i], *calendars[i], strip.instant(column), holidays);
                worst = std::max(worst, score);
                total += score;
            }
            if (worst < bestWorst || (worst == bestWorst && total < bestTotal)) {
                bestWorst = worst;
                bestTotal = total;
                best = column;
            }
        }
        benchmark::DoNotOptimize(best);
    }
}
BENCHMARK(icu)->ArgName("change")->Arg(0)->Arg(1);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    return noonward::bench::run(
        argc, argv,
        {{"fairest", "ours/change:0", "icu/change:0", "ICU", 0.05},
         {"fairest on a change day", "ours/change:1", "icu/change:1", "ICU", 0.05}});
}
