#include "model/Phase.h"

#include <gtest/gtest.h>

#include "fakes/FakeHolidays.h"
#include "support/Instants.h"

namespace noonward {
namespace {

using test::FakeHolidays;
using test::utc;
using test::zoneNamed;

Row rowIn(const char* zone, const Place& place = {}) {
    return {0, place, zoneNamed(zone), false};
}

const char* name(Phase phase) {
    switch (phase) {
        case Phase::work:
            return "work";
        case Phase::awake:
            return "awake";
        case Phase::asleep:
            return "asleep";
        case Phase::off:
            return "off";
    }
    return "?";
}

const FakeHolidays& holidays() {
    static const FakeHolidays listed({
        {{"GB", {2026, 4, 3}}, {.name = "Good Friday"}},
        {{"GB", {2026, 7, 11}}, {.name = "A Saturday holiday"}},
        {{"GB", {2026, 3, 17}}, {.name = "St Patrick's Day", .regional = "Northern Ireland"}},
        {{"GB", {2026, 7, 12}}, {.name = "Battle of the Boyne", .regional = "Northern Ireland"}},
        {{"IN", {2026, 1, 26}}, {.name = "Republic Day"}},
    });
    return listed;
}

TEST(Phase, FollowsTheHoursOfACommonDay) {
    const struct {
        WorkHours work;
        const char* at;  // Wednesday, in London's winter
        bool mid;
        const char* phase;
    } cases[] = {
        {{8, 18}, "08:00", true, "work"},
        {{8, 18}, "07:00", true, "awake"},
        {{8, 18}, "05:00", true, "asleep"},
        {{8, 18}, "05:30", true, "awake"},
        {{8, 18}, "22:00", true, "awake"},
        {{8, 18}, "23:00", true, "asleep"},
        {{8, 18}, "07:30", false, "awake"},
        {{8, 18}, "07:30", true, "work"},
        {{8, 18}, "17:30", true, "awake"},
        {{8, 18}, "17:59", false, "work"},
        {{5, 23.5}, "23:15", false, "work"},
        {{5, 23.5}, "23:45", false, "asleep"},
        {{5, 23.5}, "04:30", false, "asleep"},
        // Working hours across midnight push sleep into the day.
        {{22, 6}, "23:00", true, "work"},
        {{22, 6}, "06:00", true, "awake"},
        {{22, 6}, "21:00", true, "awake"},
        {{0, 0}, "03:00", true, "work"},
        {{-1e308, -1e307}, "03:00", true, "awake"},
        {{1e307, 1e308}, "23:30", false, "awake"},
    };
    for (const auto& [work, at, mid, phase] : cases) {
        const Row row = rowIn("Europe/London", {.work = {{work.start, work.end}}});
        const Instant instant = utc((std::string("2026-01-14 ") + at).c_str());
        EXPECT_STREQ(name(noonward::phase(row, instant, mid, holidays())), phase)
            << work.start << "–" << work.end << " at " << at;
    }
}

TEST(Phase, IsLocalToTheRow) {
    const Row nepal = rowIn("Asia/Kathmandu");
    EXPECT_STREQ(name(phase(nepal, utc("2026-01-14 01:44"), true, holidays())), "awake");
    EXPECT_STREQ(name(phase(nepal, utc("2026-01-14 01:45"), true, holidays())), "work");
    EXPECT_STREQ(name(phase(nepal, Instant::max(), true, holidays())), "asleep");
    EXPECT_STREQ(name(phase(nepal, Instant::min(), true, holidays())), "awake");
}

TEST(Phase, TellsWhyADayIsOff) {
    const Place own{.daysOff = {{"2026-04-03", "2026-05-06"}}};
    const struct {
        const char* what;
        const char* zone;
        Place place;
        const char* at;
        std::optional<DayOff> dayOff;
        const char* working;  // the phase of a cell in working hours
        const char* evening;
    } cases[] = {
        {"common day", "Europe/London", {}, "2026-01-14", std::nullopt, "work", "awake"},
        {"weekend",
         "Europe/London",
         {},
         "2026-01-17",
         DayOff::weekend("Saturday"),
         "awake",
         "awake"},
        {"the country's week",
         "Asia/Riyadh",
         {},
         "2026-01-16",
         DayOff::weekend("Friday"),
         "awake",
         "awake"},
        {"the place's week",
         "Europe/London",
         {.workdays = {{1}}},
         "2026-01-14",
         DayOff::weekend("Wednesday"),
         "awake",
         "awake"},
        {"holiday",
         "Europe/London",
         {},
         "2026-04-03",
         DayOff::holiday("Good Friday"),
         "off",
         "awake"},
        {"holiday on a weekend",
         "Europe/London",
         {},
         "2026-07-11",
         DayOff::holiday("A Saturday holiday"),
         "off",
         "awake"},
        {"holidays switched off",
         "Europe/London",
         {.holidays = false},
         "2026-04-03",
         std::nullopt,
         "work",
         "awake"},
        {"holiday in part of the country",
         "Europe/London",
         {},
         "2026-03-17",
         DayOff::regional("St Patrick's Day", "Northern Ireland"),
         "work",
         "awake"},
        {"the same on a weekend",
         "Europe/London",
         {},
         "2026-07-12",
         DayOff::weekend("Sunday"),
         "awake",
         "awake"},
        {"own day off before a holiday", "Europe/London", own, "2026-04-03", DayOff::ownDay(),
         "off", "awake"},
        {"own day off", "Europe/London", own, "2026-05-06", DayOff::ownDay(), "off", "awake"},
        {"another country's holiday",
         "Europe/London",
         {},
         "2026-01-26",
         std::nullopt,
         "work",
         "awake"},
        {"no country", "UTC", {}, "2026-04-03", std::nullopt, "work", "awake"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Row row = rowIn(c.zone, c.place);
        const Instant midday = utc((std::string(c.at) + " 12:00").c_str());
        EXPECT_EQ(dayOff(row, midday, holidays()), c.dayOff);
        EXPECT_STREQ(name(phase(row, midday, true, holidays())), c.working);
        EXPECT_STREQ(name(phase(row, midday + hours(7), true, holidays())), c.evening);
    }
}

TEST(Phase, TakesTheDayOfTheRowsOwnCalendar) {
    const Row india = rowIn("Asia/Kolkata");
    EXPECT_EQ(dayOff(india, utc("2026-01-25 18:29"), holidays()), DayOff::weekend("Sunday"));
    EXPECT_EQ(dayOff(india, utc("2026-01-25 18:30"), holidays()), DayOff::holiday("Republic Day"));
    EXPECT_EQ(dayOff(india, utc("2026-01-26 18:30"), holidays()), std::nullopt);
    // The middle of the cell decides: it may lie on the day after.
    const Row late = rowIn("Asia/Kolkata", {.work = {{22, 6}}});
    EXPECT_STREQ(name(phase(late, utc("2026-01-25 18:00"), false, holidays())), "awake");
    EXPECT_STREQ(name(phase(late, utc("2026-01-25 18:00"), true, holidays())), "off");
}

}  // namespace
}  // namespace noonward
