#include "model/FairestHour.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <limits>

#include "model/Phase.h"

namespace noonward {

namespace {

constexpr std::size_t mostCandidates = 24;
constexpr double dayOffPenalty = 4;
constexpr double regionalPenalty = 1;

/// The remainder of x / 24 with the sign of x; exact, and quick for what a clock gives.
double withinDay(double x) {
    if (x >= 0 && x < 24) return x;
    if (x >= 24 && x < 48) return x - 24;
    return std::fmod(x, 24);
}

double dayPenalty(const Row& row, std::chrono::sys_days day, const HolidayLookup& holidays) {
    const std::chrono::year_month_day date(day);
    const DayKey key(static_cast<int>(date.year()),
                     static_cast<int>(static_cast<unsigned>(date.month())),
                     static_cast<int>(static_cast<unsigned>(date.day())));
    const int weekday = static_cast<int>(std::chrono::weekday(day).c_encoding()) + 1;
    const auto off = offDay(row, key, weekday, holidays);
    if (!off) return 0;
    return off->off() ? dayOffPenalty : regionalPenalty;
}

/// A stretch of one row's time within one local day and one offset from UTC.
struct Run {
    Instant until;
    double penalty;
    int hour;         ///< that the clock shows where the run was entered,
    double fraction;  ///< and the part of it that has gone, in whole minutes
};

Run runAt(const Row& row, Instant at, const HolidayLookup& holidays) {
    const TimeZone::Span span = row.tz.span(at);
    const auto wall = std::chrono::floor<minutes>(at + span.offset);
    const auto day = std::chrono::floor<std::chrono::days>(wall);
    const auto minuteOfDay = static_cast<int>((wall - day).count());
    return {.until = std::min<Instant>(span.until, day + hours(24) - span.offset),
            .penalty = dayPenalty(row, day, holidays),
            .hour = minuteOfDay / 60,
            .fraction = minuteOfDay % 60 / 60.0};
}

struct ColumnScore {
    double worst = -std::numeric_limits<double>::infinity();
    double total = 0;

    void add(double score) {
        worst = std::max(worst, score);
        total += score;
    }
    bool operator<(const ColumnScore& other) const {
        return worst < other.worst || (worst == other.worst && total < other.total);
    }
};

}  // namespace

double hoursFromWork(const WorkHours& work, double hour) {
    if (Row::inHours(work, hour)) return 0;
    return std::min(withinDay(work.start - hour + 24), withinDay(hour - work.end + 24));
}

Columns fairestCandidates(const Strip& strip, Instant now, int dayOffset) {
    if (!strip.rolling || dayOffset != 0) return strip.columns();
    const auto nowCol = std::chrono::floor<hours>(now - strip.dayStart).count();
    const int first = static_cast<int>(nowCol) + 1;
    return {first, first + static_cast<int>(mostCandidates) - 1};
}

int fairestCol(const std::vector<Row>& rows, const Strip& strip, Columns candidates,
               const HolidayLookup& holidays) {
    if (rows.empty()) return candidates.first;
    std::array<ColumnScore, mostCandidates> scores;
    const auto count = std::min<std::size_t>(
        mostCandidates, static_cast<std::size_t>(candidates.last - candidates.first + 1));
    const Instant first = strip.instant(candidates.first);
    for (const Row& row : rows) {
        Instant at = first;
        for (std::size_t i = 0; i < count;) {
            Run run = runAt(row, at, holidays);
            do {  // at least once: where the calendar ends a run may end before it begins
                scores[i].add(hoursFromWork(row.work, run.hour + run.fraction) + run.penalty);
                ++run.hour;
                at += hours(1);
            } while (++i < count && at < run.until);
        }
    }
    const auto* const best = std::min_element(scores.data(), scores.data() + count);
    return candidates.first + static_cast<int>(best - scores.data());
}

}  // namespace noonward
