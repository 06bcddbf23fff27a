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

/// What one row asks of its people, hour after hour: the offset and the answer for the day are
/// kept for as long as they hold.
class RowScorer {
 public:
    RowScorer(const Row& row, const HolidayLookup& holidays) : row_(row), holidays_(holidays) {}

    double score(Instant at) {
        if (at < span_.from || at >= span_.until) span_ = row_.tz.span(at);
        const auto wall = std::chrono::floor<minutes>(at + span_.offset);
        const auto day = std::chrono::floor<std::chrono::days>(wall);
        if (day != day_) {
            day_ = day;
            penalty_ = penalty(day);
        }
        const auto minuteOfDay = static_cast<int>((wall - day).count());
        const double hour = minuteOfDay / 60 + minuteOfDay % 60 / 60.0;
        return hoursFromWork(row_.work, hour) + penalty_;
    }

 private:
    double penalty(std::chrono::sys_days day) const {
        const std::chrono::year_month_day date(day);
        const DayKey key(static_cast<int>(date.year()),
                         static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day())));
        const int weekday = static_cast<int>(std::chrono::weekday(day).c_encoding()) + 1;
        const auto off = offDay(row_, key, weekday, holidays_);
        if (!off) return 0;
        return off->off() ? dayOffPenalty : regionalPenalty;
    }

    const Row& row_;
    const HolidayLookup& holidays_;
    TimeZone::Span span_{};  // empty, so that the first instant asks
    std::chrono::sys_days day_ = std::chrono::sys_days::min();
    double penalty_ = 0;
};

struct ColumnScore {
    double worst = -std::numeric_limits<double>::infinity();
    double total = 0;

    bool operator<(const ColumnScore& other) const {
        return worst < other.worst || (worst == other.worst && total < other.total);
    }
};

}  // namespace

double hoursFromWork(const WorkHours& work, double hour) {
    if (hour == work.end || Row::inHours(work, hour)) return 0;
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
        RowScorer scorer(row, holidays);
        Instant at = first;
        for (std::size_t i = 0; i < count; ++i, at += hours(1)) {
            const double score = scorer.score(at);
            scores[i].worst = std::max(scores[i].worst, score);
            scores[i].total += score;
        }
    }
    const auto* const best = std::min_element(scores.data(), scores.data() + count);
    return candidates.first + static_cast<int>(best - scores.data());
}

}  // namespace noonward
