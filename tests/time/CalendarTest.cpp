#include "time/Calendar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;
using test::wall;
using test::zoneNamed;

TEST(Calendar, ShowsTheWallClock) {
    const struct {
        const char* zone;
        const char* at;
        const char* shown;
    } rows[] = {
        {"UTC", "1970-01-01 00:00", "Thu 1970-01-01 00:00:00"},
        {"UTC", "1969-12-31 23:59:59", "Wed 1969-12-31 23:59:59"},
        {"UTC", "2000-02-29 12:00", "Tue 2000-02-29 12:00:00"},
        {"UTC", "1900-03-01 00:00", "Thu 1900-03-01 00:00:00"},
        {"Asia/Kolkata", "2026-01-31 18:30", "Sun 2026-02-01 00:00:00"},
        {"Asia/Kathmandu", "2026-06-01 18:14:59", "Mon 2026-06-01 23:59:59"},
        {"Asia/Kathmandu", "1985-12-31 18:29:59", "Tue 1985-12-31 23:59:59"},
        {"Asia/Kathmandu", "1985-12-31 18:30", "Wed 1986-01-01 00:15:00"},
        {"Africa/Cairo", "2026-04-23 21:59:59", "Thu 2026-04-23 23:59:59"},
        {"Africa/Cairo", "2026-04-23 22:00", "Fri 2026-04-24 01:00:00"},
        {"Pacific/Apia", "2011-12-30 09:59:59", "Thu 2011-12-29 23:59:59"},
        {"Pacific/Apia", "2011-12-30 10:00", "Sat 2011-12-31 00:00:00"},
        {"Pacific/Kwajalein", "1993-08-21 11:59:59", "Fri 1993-08-20 23:59:59"},
        {"Pacific/Kwajalein", "1993-08-21 12:00", "Sun 1993-08-22 00:00:00"},
        {"Australia/Lord_Howe", "2026-04-04 14:59:59", "Sun 2026-04-05 01:59:59"},
        {"Australia/Lord_Howe", "2026-04-04 15:00", "Sun 2026-04-05 01:30:00"},
        {"America/St_Johns", "2010-11-07 02:30:59", "Sun 2010-11-07 00:00:59"},
        {"America/St_Johns", "2010-11-07 02:31", "Sat 2010-11-06 23:01:00"},
        // Rules reach beyond the last year that a zone's file lists.
        {"America/New_York", "2399-07-01 12:00", "Thu 2399-07-01 08:00:00"},
        {"America/New_York", "2999-07-01 12:00", "Mon 2999-07-01 08:00:00"},
        {"America/New_York", "2999-01-01 12:00", "Tue 2999-01-01 07:00:00"},
        {"Europe/London", "0001-06-01 12:00", "Fri 0001-06-01 11:58:45"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(wall(row.zone, utc(row.at)), row.shown) << row.zone;
}

TEST(Calendar, CountsHoursWithoutSeconds) {
    const Calendar kolkata(zoneNamed("Asia/Kolkata"));
    EXPECT_EQ(kolkata.hours(utc("2026-01-01 00:00:59")), 5.5);
    EXPECT_EQ(kolkata.hours(utc("2026-01-01 18:29:59")), 23 + 59 / 60.0);
    EXPECT_EQ(kolkata.hours(utc("2026-01-01 18:30") - microseconds(1)), 23 + 59 / 60.0);
    EXPECT_EQ(kolkata.hours(utc("1969-12-31 18:30")), 0.0);
}

TEST(Calendar, StartsADayAtItsFirstInstant) {
    const struct {
        const char* zone;
        const char* at;
        const char* start;
    } rows[] = {
        {"Asia/Kolkata", "2026-03-03 18:29:59", "2026-03-02 18:30"},
        {"Asia/Kolkata", "2026-03-03 18:30", "2026-03-03 18:30"},
        {"Asia/Kathmandu", "1985-12-31 20:00", "1985-12-31 18:30"},
        // Midnight is skipped.
        {"Africa/Cairo", "2026-04-24 12:00", "2026-04-23 22:00"},
        {"Africa/Cairo", "2026-04-23 22:00", "2026-04-23 22:00"},
        {"Africa/Cairo", "2026-04-23 21:59:59", "2026-04-22 22:00"},
        {"America/Havana", "2026-03-08 20:00", "2026-03-08 05:00"},
        {"America/Santiago", "2026-09-06 20:00", "2026-09-06 04:00"},
        {"Asia/Beirut", "2026-03-29 12:00", "2026-03-28 22:00"},
        {"Atlantic/Azores", "2026-03-29 12:00", "2026-03-29 01:00"},
        {"America/St_Johns", "2010-03-14 12:00", "2010-03-14 03:30"},
        // Midnight comes twice.
        {"America/Havana", "2025-11-02 05:30", "2025-11-02 04:00"},
        {"Atlantic/Azores", "2026-10-25 01:30", "2026-10-25 00:00"},
        // The last hour of the day comes twice; its end only once.
        {"Africa/Cairo", "2026-10-29 21:30", "2026-10-28 21:00"},
        {"Africa/Cairo", "2026-10-29 22:00", "2026-10-29 22:00"},
        // A minute of the day passes before the day before it comes back for an hour.
        {"America/St_Johns", "2010-11-07 02:30:30", "2010-11-07 02:30"},
        {"America/St_Johns", "2010-11-07 03:00", "2010-11-06 02:30"},
        {"America/St_Johns", "2010-11-07 03:30", "2010-11-07 02:30"},
        // The day before never was.
        {"Pacific/Apia", "2011-12-31 05:00", "2011-12-30 10:00"},
        {"Pacific/Kwajalein", "1993-08-22 05:00", "1993-08-21 12:00"},
    };
    for (const auto& row : rows) {
        const Calendar calendar(zoneNamed(row.zone));
        EXPECT_EQ(calendar.startOfDay(utc(row.at)), utc(row.start))
            << row.zone << ' ' << row.at << ": "
            << wall(row.zone, calendar.startOfDay(utc(row.at)));
    }
}

TEST(Calendar, KnowsHowLongADayIs) {
    const struct {
        const char* zone;
        const char* at;
        int minutes;
    } rows[] = {
        {"Europe/London", "2026-03-29 12:00", 23 * 60},
        {"Europe/London", "2026-10-25 12:00", 25 * 60},
        {"Europe/London", "2026-10-26 12:00", 24 * 60},
        {"Africa/Cairo", "2026-04-24 12:00", 23 * 60},
        {"Africa/Cairo", "2026-10-29 12:00", 25 * 60},
        {"Australia/Lord_Howe", "2026-04-05 00:00", 24 * 60 + 30},
        {"Australia/Lord_Howe", "2026-10-04 00:00", 23 * 60 + 30},
        {"Pacific/Apia", "2011-12-30 00:00", 24 * 60},
        {"Asia/Kathmandu", "1986-01-01 00:00", 23 * 60 + 45},
    };
    for (const auto& row : rows) {
        const Calendar calendar(zoneNamed(row.zone));
        const auto next = calendar.startOfDay(utc(row.at), 1);
        ASSERT_TRUE(next);
        EXPECT_EQ(*next - calendar.startOfDay(utc(row.at)), minutes(row.minutes)) << row.zone;
    }
}

TEST(Calendar, SetsTheTimeOnADay) {
    const struct {
        const char* zone;
        const char* at;
        int days, hour, minute;
        const char* found;
        const char* shown;
    } rows[] = {
        {"Europe/London", "2026-07-01 12:00", 0, 9, 30, "2026-07-01 08:30",
         "Wed 2026-07-01 09:30:00"},
        {"Europe/London", "2026-03-28 12:00", 1, 1, 30, "2026-03-29 01:00",
         "Sun 2026-03-29 02:00:00"},
        {"Europe/London", "2026-10-24 12:00", 1, 1, 30, "2026-10-25 00:30",
         "Sun 2026-10-25 01:30:00"},
        {"America/New_York", "2026-03-09 12:00", -1, 2, 30, "2026-03-08 07:00",
         "Sun 2026-03-08 03:00:00"},
        {"Africa/Cairo", "2026-04-23 12:00", 1, 0, 15, "2026-04-23 22:00",
         "Fri 2026-04-24 01:00:00"},
        {"Africa/Cairo", "2026-10-29 12:00", 0, 23, 30, "2026-10-29 20:30",
         "Thu 2026-10-29 23:30:00"},
        {"Australia/Lord_Howe", "2026-10-04 12:00", 0, 2, 15, "2026-10-03 15:30",
         "Sun 2026-10-04 02:30:00"},
        {"Australia/Lord_Howe", "2026-04-05 00:00", 0, 1, 45, "2026-04-04 14:45",
         "Sun 2026-04-05 01:45:00"},
        {"America/St_Johns", "2010-11-07 03:00", 0, 23, 30, "2010-11-07 02:00",
         "Sat 2010-11-06 23:30:00"},
        {"America/St_Johns", "2010-11-07 03:00", 1, 0, 0, "2010-11-07 02:30",
         "Sun 2010-11-07 00:00:00"},
        {"Pacific/Apia", "2011-12-30 09:00", 1, 12, 0, "2011-12-30 10:00",
         "Sat 2011-12-31 00:00:00"},
        {"Pacific/Apia", "2011-12-30 09:00", 2, 12, 0, "2011-12-30 22:00",
         "Sat 2011-12-31 12:00:00"},
        {"Pacific/Kwajalein", "1993-08-22 00:00", -1, 12, 0, "1993-08-21 12:00",
         "Sun 1993-08-22 00:00:00"},
        {"America/New_York", "2999-03-01 12:00", 9, 2, 30, "2999-03-10 07:00",
         "Sun 2999-03-10 03:00:00"},
    };
    for (const auto& row : rows) {
        const Calendar calendar(zoneNamed(row.zone));
        const auto found = calendar.timeOfDay(utc(row.at), row.days, row.hour, row.minute);
        ASSERT_TRUE(found) << row.zone << ' ' << row.at;
        EXPECT_EQ(*found, utc(row.found)) << row.zone << ' ' << row.at;
        EXPECT_EQ(wall(row.zone, *found), row.shown) << row.zone;
    }
}

TEST(Calendar, RefusesTimesAndDaysThatAreNone) {
    const Calendar calendar(zoneNamed("Europe/London"));
    const Instant at = utc("2026-07-01 12:00");
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    for (const auto& [hour, minute] :
         {std::pair(24, 0), {-1, 0}, {0, 60}, {0, -1}, {most, least}}) {
        EXPECT_FALSE(calendar.timeOfDay(at, 0, hour, minute)) << hour << ':' << minute;
    }
    for (const int days : {most, least, 3'000'000, -800'000}) {
        EXPECT_FALSE(calendar.startOfDay(at, days)) << days;
    }
    EXPECT_TRUE(calendar.startOfDay(at, 2'000'000));
    EXPECT_TRUE(calendar.startOfDay(at, -700'000));
}

TEST(Calendar, StartsAnHourWhereTheClockShowsItOrIsChanged) {
    const struct {
        const char* zone;
        const char* at;
        const char* start;
    } rows[] = {
        {"Europe/London", "2026-07-01 12:34:56", "2026-07-01 12:00"},
        {"Asia/Kolkata", "2026-07-01 12:34:56", "2026-07-01 12:30"},
        {"Asia/Kolkata", "2026-07-01 12:29:59", "2026-07-01 11:30"},
        {"Asia/Kathmandu", "2026-07-01 12:14:59", "2026-07-01 11:15"},
        {"America/New_York", "2026-11-01 05:59:59", "2026-11-01 05:00"},  // the first 01:59:59
        {"America/New_York", "2026-11-01 06:59:59", "2026-11-01 06:00"},  // the second
        {"America/New_York", "2026-03-08 07:10", "2026-03-08 07:00"},
        {"Australia/Lord_Howe", "2026-04-04 14:59", "2026-04-04 14:00"},
        {"Australia/Lord_Howe", "2026-04-04 15:10", "2026-04-04 15:00"},  // the second 01:40
        {"Australia/Lord_Howe", "2026-04-04 15:40", "2026-04-04 15:30"},
        {"Australia/Lord_Howe", "2026-10-03 15:29", "2026-10-03 14:30"},
        {"Australia/Lord_Howe", "2026-10-03 15:45", "2026-10-03 15:30"},  // 02:45 after 01:59:59
        {"America/St_Johns", "2010-11-07 02:50", "2010-11-07 02:31"},
        {"Asia/Kathmandu", "1985-12-31 18:40", "1985-12-31 18:30"},
        {"Australia/Lord_Howe", "2426-10-03 15:45", "2426-10-03 15:30"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Calendar(zoneNamed(row.zone)).startOfHour(utc(row.at)), utc(row.start))
            << row.zone << ' ' << row.at;
    }
}

TEST(Calendar, CountsDaysBetween) {
    const struct {
        const char* zone;
        const char* from;
        const char* to;
        int days;
    } rows[] = {
        {"Europe/London", "2026-03-28 23:59", "2026-03-29 00:00", 1},
        {"Europe/London", "2026-03-29 22:59:59", "2026-03-29 00:00", 0},
        {"Europe/London", "2026-03-29 23:00", "2026-03-29 00:00", -1},
        {"Europe/London", "2026-01-01 00:00", "2027-01-01 00:00", 365},
        {"Pacific/Apia", "2011-12-30 09:59", "2011-12-30 10:00", 2},
        {"America/St_Johns", "2010-11-07 02:30", "2010-11-07 02:31", -1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Calendar(zoneNamed(row.zone)).daysBetween(utc(row.from), utc(row.to)), row.days)
            << row.zone << ' ' << row.from;
    }
}

TEST(Calendar, TakesInstantsBeyondItsYearsAsTheLastOnes) {
    for (const char* zone : {"UTC", "Pacific/Kiritimati", "Europe/London", "Africa/Casablanca"}) {
        const Calendar calendar(zoneNamed(zone));
        EXPECT_EQ(calendar.local(Instant::min()), calendar.local(TimeZone::earliest)) << zone;
        EXPECT_EQ(calendar.local(Instant::max()), calendar.local(TimeZone::latest)) << zone;
        EXPECT_EQ(calendar.local(Instant::min()).year, 1) << zone;
        EXPECT_EQ(calendar.local(Instant::max()).year, 9999) << zone;
        for (const Instant at : {Instant::min(), Instant::max()}) {
            EXPECT_EQ(calendar.startOfDay(at), *calendar.startOfDay(at, 0)) << zone;
            EXPECT_EQ(calendar.hours(at),
                      calendar.hours(std::clamp(at, TimeZone::earliest, TimeZone::latest)))
                << zone;
        }
    }
    const Calendar calendar(TimeZone::utc());
    EXPECT_EQ(calendar.daysBetween(Instant::min(), Instant::max()), 3'652'055);
}

}  // namespace
}  // namespace noonward
