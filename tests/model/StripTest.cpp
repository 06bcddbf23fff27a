#include "model/Strip.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;
using test::wall;
using test::zoneNamed;

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

StripPlace fixed(const char* zone, const char* now, int dayOffset = 0) {
    return {Calendar(zoneNamed(zone)), utc(now), false, dayOffset};
}
StripPlace rolling(const char* zone, const char* now, int dayOffset = 0) {
    return {Calendar(zoneNamed(zone)), utc(now), true, dayOffset};
}

TEST(Strip, StartsWhereTheShownDayBegins) {
    const struct {
        const char* zone;
        const char* now;
        int dayOffset;
        const char* start;  // at home
    } cases[] = {
        {"Europe/London", "2026-07-15 09:42", 0, "Wed 2026-07-15 00:00:00"},
        {"Europe/London", "2026-07-15 23:30", 0, "Thu 2026-07-16 00:00:00"},
        {"Europe/London", "2026-07-15 09:42", -15, "Tue 2026-06-30 00:00:00"},
        // The days on which clocks change have 25 and 23 hours.
        {"Europe/London", "2026-10-25 20:00", 0, "Sun 2026-10-25 00:00:00"},
        {"Europe/London", "2026-10-25 20:00", 1, "Mon 2026-10-26 00:00:00"},
        {"Europe/London", "2026-03-28 20:00", 1, "Sun 2026-03-29 00:00:00"},
        {"Europe/London", "2026-03-28 20:00", 2, "Mon 2026-03-30 00:00:00"},
        {"Asia/Kathmandu", "2026-03-28 20:00", 0, "Sun 2026-03-29 00:00:00"},
        // Clocks go forward at midnight: the day begins at one.
        {"Africa/Cairo", "2026-04-23 12:00", 1, "Fri 2026-04-24 01:00:00"},
        {"Africa/Cairo", "2026-04-24 12:00", 0, "Fri 2026-04-24 01:00:00"},
        {"Africa/Cairo", "2026-04-24 12:00", 1, "Sat 2026-04-25 00:00:00"},
        {"America/Havana", "2026-03-08 12:00", 0, "Sun 2026-03-08 01:00:00"},
        {"America/Santiago", "2026-09-05 12:00", 1, "Sun 2026-09-06 01:00:00"},
        // Days beyond the calendar.
        {"Europe/London", "2026-07-15 09:42", most, "Wed 2026-07-15 00:00:00"},
        {"Europe/London", "2026-07-15 09:42", least, "Wed 2026-07-15 00:00:00"},
    };
    for (const auto& [zone, now, dayOffset, start] : cases) {
        const Strip strip = stripAt(fixed(zone, now, dayOffset));
        EXPECT_EQ(wall(zone, strip.dayStart), start) << zone << " " << now << " " << dayOffset;
        EXPECT_EQ(strip.shownDay(), strip.dayStart);
        EXPECT_EQ(strip.scroll(), 0);
        EXPECT_EQ(strip.columns(), (Columns{0, 23}));
    }
    const Strip longDay = stripAt(fixed("Europe/London", "2026-10-25 20:00"));
    EXPECT_EQ(wall("Europe/London", longDay.instant(23)), "Sun 2026-10-25 22:00:00");
}

TEST(Strip, RollsAroundTheCurrentHour) {
    const struct {
        const char* zone;
        const char* now;
        int dayOffset;
        const char* start;  // in UTC
        int elapsedMinutes;
    } cases[] = {
        {"Europe/London", "2026-01-15 14:20", 0, "2026-01-15 02:00", 20},
        {"Europe/London", "2026-01-15 14:00", 0, "2026-01-15 02:00", 0},
        {"Europe/London", "2026-01-15 14:20", 1, "2026-01-16 02:00", 20},
        {"Europe/London", "2026-01-15 14:20", -3, "2026-01-12 02:00", 20},
        // Days of the rolling strip are 24 hours, whatever the clocks do.
        {"Europe/London", "2026-03-28 14:20", 1, "2026-03-29 02:00", 20},
        {"Asia/Kolkata", "2026-01-15 14:20", 0, "2026-01-15 01:30", 50},
        {"Asia/Kathmandu", "2026-01-15 14:20", 0, "2026-01-15 02:15", 5},
        // The hour that clocks show twice, and the one that follows the skipped half hour.
        {"Europe/London", "2026-10-25 00:40", 0, "2026-10-24 12:00", 40},
        {"Europe/London", "2026-10-25 01:40", 0, "2026-10-24 13:00", 40},
        {"Australia/Lord_Howe", "2026-10-03 15:40", 0, "2026-10-03 03:30", 10},
    };
    for (const auto& [zone, now, dayOffset, start, elapsedMinutes] : cases) {
        const Strip strip = stripAt(rolling(zone, now, dayOffset));
        SCOPED_TRACE(std::string(zone) + " " + now);
        EXPECT_EQ(strip.dayStart, utc(start));
        EXPECT_DOUBLE_EQ(strip.scroll(), elapsedMinutes / 60.0);
        EXPECT_EQ(strip.columns(), (Columns{elapsedMinutes > 0 ? 1 : 0, 23}));
        EXPECT_EQ(strip.shownDay(), utc(now) + hours(24) * dayOffset);
        EXPECT_EQ(strip.col(strip.shownDay()), 12);
    }
    for (const int far : {most, least}) {
        const Strip strip = stripAt(rolling("Europe/London", "2026-01-15 14:20", far));
        EXPECT_EQ(strip.dayStart, far > 0 ? TimeZone::latest : TimeZone::earliest);
    }
}

TEST(Strip, FindsTheColumnOfAnInstant) {
    const Strip strip = stripAt(fixed("Europe/London", "2026-01-15 14:20"));
    const struct {
        Instant at;
        int column;
    } cases[] = {
        {utc("2026-01-15 00:00"), 0},  {utc("2026-01-15 09:59:59"), 9},
        {utc("2026-01-15 10:00"), 10}, {utc("2026-01-14 23:59:59"), 0},
        {utc("2026-01-16 06:00"), 23}, {Instant::min(), 0},
        {Instant::max(), 23},
    };
    for (const auto& [at, column] : cases)
        EXPECT_EQ(strip.col(at), column);
    EXPECT_EQ(strip.instant(30), utc("2026-01-16 06:00"));
    EXPECT_EQ(strip.instant(-1), utc("2026-01-14 23:00"));
    EXPECT_EQ(strip.instant(most), TimeZone::latest);
    EXPECT_EQ(strip.instant(least), TimeZone::earliest);
}

TEST(Strip, FindsTheColumnUnderThePointer) {
    const Strip still{};
    const Strip scrolled{.rolling = true, .elapsed = minutes(45)};
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        Strip strip;
        double x;
        double pitch;
        int column;
    } cases[] = {
        {still, 0, 32, 0},         {still, 31.9, 32, 0},       {still, 32, 32, 1},
        {still, -5, 32, 0},        {still, 1e9, 32, 23},       {scrolled, 10, 20, 1},
        {scrolled, 0, 20, 1},      {scrolled, 25, 20, 2},      {still, 767.9, 32, 23},
        {still, infinity, 32, 23}, {still, -infinity, 32, 0},  {still, 1, 0, 23},
        {scrolled, 0, 0, 1},       {still, 1e308, 1e-300, 23},
    };
    for (const auto& [strip, x, pitch, column] : cases)
        EXPECT_EQ(strip.column(x, pitch), column) << x << " / " << pitch;
}

TEST(Strip, CountsTheDaysToAnInstant) {
    const struct {
        StripPlace place;
        const char* at;
        int dayOffset;
    } cases[] = {
        {fixed("Europe/London", "2026-07-15 09:42"), "2026-07-15 22:59", 0},
        {fixed("Europe/London", "2026-07-15 09:42"), "2026-07-15 23:00", 1},
        {fixed("Europe/London", "2026-07-15 09:42"), "2026-07-14 22:59", -1},
        {fixed("Europe/London", "2026-10-24 22:30"), "2026-10-26 23:59", 2},
        {fixed("Africa/Cairo", "2026-04-23 12:00"), "2026-04-23 22:00", 1},
        // From the start of the current hour, halves away from it.
        {rolling("Europe/London", "2026-01-15 14:20"), "2026-01-16 08:00", 1},
        {rolling("Europe/London", "2026-01-15 14:20"), "2026-01-16 01:59:59", 0},
        {rolling("Europe/London", "2026-01-15 14:20"), "2026-01-16 02:00", 1},
        {rolling("Europe/London", "2026-01-15 14:20"), "2026-01-15 02:00", -1},
        {rolling("Europe/London", "2026-01-15 14:20"), "2026-01-15 02:00:01", 0},
        {rolling("Europe/London", "2026-01-15 14:20", 5), "2026-01-18 14:00", 3},
    };
    for (const auto& [place, at, dayOffset] : cases)
        EXPECT_EQ(dayOffsetShowing(place, utc(at)), dayOffset) << at;
    for (const bool rolls : {false, true}) {
        StripPlace place = fixed("Europe/London", "2026-01-15 14:20");
        place.rolling = rolls;
        for (const Instant far : {Instant::max(), Instant::min()}) {
            place.dayOffset = dayOffsetShowing(place, far);
            const Instant distance = withinCalendar(far);
            EXPECT_LT(std::chrono::abs(stripAt(place).dayStart - distance), hours(48))
                << "the strip of a far instant lies by it";
        }
    }
}

}  // namespace
}  // namespace noonward
