#include "model/FairestHour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include "fakes/FakeHolidays.h"
#include "model/Phase.h"
#include "support/Instants.h"

namespace noonward {
namespace {

using test::FakeHolidays;
using test::utc;
using test::zoneNamed;

Row rowIn(const char* zone, const Place& place = {}) {
    return {0, place, zoneNamed(zone), false};
}

/// The fairest column of the strip of a day in the first row's zone.
int fairest(const std::vector<Row>& rows, const char* now, const FakeHolidays& holidays = {}) {
    const Strip strip =
        stripAt({.home = rows.front().cal, .now = utc(now), .rolling = false, .dayOffset = 0});
    return fairestCol(rows, strip, strip.columns(), holidays);
}

TEST(FairestHour, MeasuresTheHoursFromWork) {
    const struct {
        WorkHours work;
        double hour;
        double distance;
    } cases[] = {
        {{8, 18}, 8, 0},
        {{8, 18}, 17.5, 0},
        {{8, 18}, 18, 0},
        {{8, 18}, 18.25, 0.25},
        {{8, 18}, 7.5, 0.5},
        {{8, 18}, 1, 7},
        {{8, 18}, 0, 6},
        {{8, 18}, 23.75, 5.75},
        {{22, 6}, 23, 0},
        {{22, 6}, 6, 0},
        {{22, 6}, 9, 3},
        {{22, 6}, 20, 2},
        {{0, 24}, 0, 0},
        {{9, 9}, 3, 0},
        // What a file may hold: the remainder keeps the sign of what is divided.
        {{30, 40}, 12, -4},
        {{-30, -20}, 12, -18},
        {{1e308, 1e308 / 2}, 12, 0},
    };
    for (const auto& [work, hour, distance] : cases)
        EXPECT_DOUBLE_EQ(hoursFromWork(work, hour), distance)
            << work.start << "–" << work.end << " at " << hour;
    const double far = hoursFromWork({1e307, 1e308}, 12);
    EXPECT_TRUE(std::isfinite(far) && std::abs(far) < 24) << far;
}

TEST(FairestHour, AsksLeastOfTheWorstOff) {
    const FakeHolidays holidays({
        {{"GB", {2026, 1, 14}}, {.name = "Somewhere", .regional = "Wales"}},
        {{"US", {2026, 1, 15}}, {.name = "Everywhere"}},
    });
    const struct {
        const char* what;
        std::vector<Row> rows;
        const char* now;
        int column;
    } cases[] = {
        {"the working days overlap",
         {rowIn("Europe/London"), rowIn("America/New_York")},
         "2026-01-13 10:00",
         13},
        {"they overlap at the other end",
         {rowIn("Europe/London"), rowIn("Asia/Tokyo")},
         "2026-01-13 10:00",
         8},
        {"they never overlap: London and Sydney give way by an hour each",
         {rowIn("Europe/London", {.work = {{9, 17}}}), rowIn("Australia/Sydney")},
         "2026-01-13 10:00",
         8},
        {"a tie in the worst goes to the smaller sum",
         {rowIn("UTC", {.work = {{8, 10}}}), rowIn("UTC", {.work = {{12, 14}}}),
          rowIn("UTC", {.work = {{11, 12}}})},
         "2026-01-13 10:00",
         11},
        {"a day off weighs four hours: Tokyo's Saturday morning is better than its Friday night",
         {rowIn("Pacific/Honolulu"), rowIn("Asia/Tokyo")},
         "2026-01-16 20:00",
         13},
        {"a day of one's own weighs as much as a weekend",
         {rowIn("UTC", {.daysOff = {{"2026-01-13"}}}), rowIn("UTC", {.work = {{0, 3}}})},
         "2026-01-13 10:00",
         7},
        {"quarter-hour zones are scored at the true minute",
         {rowIn("Asia/Kathmandu", {.work = {{9, 10}}}), rowIn("UTC", {.work = {{4, 5}}})},
         "2026-01-13 10:00",
         10},
        {"a holiday in part of the country weighs an hour, until midnight there",
         {rowIn("America/New_York"), rowIn("Europe/London", {.work = {{0, 4}}})},
         "2026-01-14 20:00",
         19},
    };
    for (const auto& [what, rows, now, column] : cases)
        EXPECT_EQ(fairest(rows, now, holidays), column) << what;
}

TEST(FairestHour, KnowsItsCandidates) {
    const Calendar london(zoneNamed("Europe/London"));
    const auto candidates = [&](const char* now, bool rolling, int dayOffset) {
        const Strip strip = stripAt({london, utc(now), rolling, dayOffset});
        return fairestCandidates(strip, utc(now), dayOffset);
    };
    EXPECT_EQ(candidates("2026-01-15 14:20", false, 0), (Columns{0, 23}));
    EXPECT_EQ(candidates("2026-01-15 14:20", true, 0), (Columns{13, 36}));
    EXPECT_EQ(candidates("2026-01-15 14:00", true, 0), (Columns{13, 36}));
    EXPECT_EQ(candidates("2026-01-15 14:20", true, 1), (Columns{1, 23}));
    EXPECT_EQ(candidates("2026-01-15 14:00", true, -1), (Columns{0, 23}));

    for (const Columns range : {Columns{0, 23}, Columns{1, 23}, Columns{13, 36}})
        EXPECT_EQ(fairestCol({}, {.dayStart = utc("2026-01-15 00:00")}, range, FakeHolidays()),
                  range.first)
            << "with everyone hidden the first candidate is as fair as any";
}

TEST(FairestHour, EndsWithTheCalendar) {
    const std::vector<Row> rows{rowIn("Europe/London"), rowIn("Pacific/Apia")};
    for (const Instant edge : {TimeZone::earliest, TimeZone::latest, TimeZone::latest + hours(99)})
        for (const int column : {0, 1, 1000})
            EXPECT_TRUE((Columns{column, column + 23})
                            .contains(fairestCol(rows, {.dayStart = edge}, {column, column + 23},
                                                 FakeHolidays())));
}

// The rule as it is put in words, hour by hour and row by row.
int byTheRule(const std::vector<Row>& rows, const Strip& strip, Columns candidates,
              const HolidayLookup& holidays) {
    double bestWorst = std::numeric_limits<double>::infinity();
    double bestTotal = 0;
    int best = candidates.first;
    for (int column = candidates.first; column <= candidates.last; ++column) {
        const Instant at = strip.dayStart + hours(column);
        double worst = -std::numeric_limits<double>::infinity();
        double total = 0;
        for (const Row& row : rows) {
            const double hour = row.hours(at);
            const auto [start, end] = row.work;
            double score = 0;
            if (!row.inHours(hour) && hour != end)
                score = std::min(std::fmod(start - hour + 24, 24), std::fmod(hour - end + 24, 24));
            if (const auto day = dayOff(row, at, holidays)) score += day->off() ? 4 : 1;
            worst = std::max(worst, score);
            total += score;
        }
        if (worst < bestWorst || (worst == bestWorst && total < bestTotal)) {
            bestWorst = worst;
            bestTotal = total;
            best = column;
        }
    }
    return best;
}

class Draw {
 public:
    explicit Draw(unsigned seed) : engine_(seed) {}

    int number(int from, int to) { return std::uniform_int_distribution(from, to)(engine_); }
    bool oneIn(int n) { return number(1, n) == 1; }
    template <typename List>
    const auto& of(const List& list) {
        return list[static_cast<std::size_t>(number(0, static_cast<int>(std::size(list)) - 1))];
    }

    Row row() {
        static constexpr const char* zones[] = {
            "Europe/London",    "America/New_York",    "Asia/Kolkata",
            "Asia/Kathmandu",   "Africa/Cairo",        "America/Havana",
            "America/Santiago", "Australia/Lord_Howe", "America/St_Johns",
            "Pacific/Apia",     "Pacific/Kiritimati",  "Asia/Riyadh",
            "Asia/Tehran",      "Antarctica/Troll",    "UTC",
            "Pacific/Chatham",  "Africa/Monrovia",     "America/Argentina/Ushuaia"};
        static constexpr double odd[] = {-1e308, -25, -0.5, 23.999, 24, 30, 47.5, 72, 1e308};
        Place place{.label = "somewhere"};
        if (oneIn(2)) place.work = {{number(0, 96) / 4.0, number(0, 96) / 4.0}};
        if (oneIn(12)) place.work = {{of(odd), of(odd)}};
        if (oneIn(3)) {
            place.workdays.emplace();
            for (int day = 0; day <= 8; ++day)
                if (oneIn(2)) place.workdays->push_back(day);
        }
        if (oneIn(4)) place.holidays = false;
        return {0, place, zoneNamed(of(zones)), false};
    }

    Instant instant() {
        // About clock changes of several countries, and anywhere in a century.
        static const char* changes[] = {"2026-03-29 01:00", "2026-04-23 22:00", "2026-10-25 01:00",
                                        "2026-09-06 04:00", "2011-12-30 10:00", "2026-03-08 05:00",
                                        "2026-04-04 15:00", "1969-12-31 23:00"};
        const Instant about =
            oneIn(2) ? utc(of(changes)) : utc("1970-01-01 00:00") + hours(number(0, 876'000));
        return about + minutes(number(-2880, 2880));
    }

    FakeHolidays holidays(Instant about) {
        FakeHolidays drawn;
        for (const char* country : {"GB", "US", "IN", "EG", "SA", "CL", "WS", "AU"}) {
            const DayKey day = Calendar(TimeZone::utc()).dayKey(about + hours(number(-48, 48)));
            drawn.days[{country, day}] = {.name = "a holiday"};
            if (oneIn(2)) drawn.days[{country, day}].regional = "the north";
        }
        return drawn;
    }

 private:
    std::mt19937 engine_;
};

TEST(FairestHour, IsTheRulesOwnInEveryDrawnWorld) {
    constexpr int worlds = 3000;
    int beyond = 0;
    for (unsigned seed = 0; seed < worlds; ++seed) {
        Draw draw(seed);
        std::vector<Row> rows;
        for (int count = draw.number(1, 7); count > 0; --count)
            rows.push_back(draw.row());
        const Instant now = draw.instant();
        const FakeHolidays holidays = draw.holidays(now);
        if (draw.oneIn(3))
            rows.front().daysOff.insert(rows.front().cal.dayKey(now + hours(draw.number(-24, 24))));
        const int dayOffset = draw.oneIn(2) ? 0 : draw.number(-400, 400);
        const Strip strip = stripAt({rows.front().cal, now, draw.oneIn(2), dayOffset});
        const Columns candidates = fairestCandidates(strip, now, dayOffset);
        const int column = fairestCol(rows, strip, candidates, holidays);
        ASSERT_EQ(column, byTheRule(rows, strip, candidates, holidays)) << "seed " << seed;
        beyond += column > 23;
    }
    EXPECT_GT(beyond, worlds / 20) << "the drawn worlds reach beyond the strip";
}

}  // namespace
}  // namespace noonward
