#include "model/Row.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;
using test::zoneNamed;

Row rowIn(const char* zone, const Place& place = {}) {
    return {0, place, zoneNamed(zone), false};
}

TEST(Row, TakesWhatThePlaceSays) {
    const Row plain = rowIn("Asia/Riyadh", {.label = "Riyadh", .shortName = "RUH"});
    EXPECT_EQ(plain.label, "Riyadh");
    EXPECT_EQ(plain.shortName, "RUH");
    EXPECT_EQ(plain.work, (WorkHours{8, 18}));
    EXPECT_EQ(plain.workdays, (std::set{1, 2, 3, 4, 5}));
    EXPECT_EQ(plain.country, "SA");
    EXPECT_TRUE(plain.daysOff.empty());

    const Row own = rowIn("Asia/Riyadh", {.work = {{9.5, 17}},
                                          .workdays = {{7, 2, 2, 9}},
                                          .holidays = false,
                                          .daysOff = {{"2026-03-04", "soon", "2026-3-4"}}});
    EXPECT_EQ(own.work, (WorkHours{9.5, 17}));
    EXPECT_EQ(own.workdays, (std::set{2, 7, 9}));
    EXPECT_EQ(own.country, std::nullopt);
    EXPECT_EQ(own.daysOff, (std::set{DayKey(2026, 3, 4)}));

    const Row odd = rowIn("UTC", {.work = {{9.0}}, .workdays = {{}}, .holidays = true});
    EXPECT_EQ(odd.work, (WorkHours{8, 18})) << "one number is no working hours";
    EXPECT_TRUE(odd.workdays.empty()) << "an empty list means no working days";
    EXPECT_EQ(odd.country, std::nullopt) << "UTC lies in no country";
}

TEST(Row, KnowsItsWorkingHours) {
    const struct {
        WorkHours work;
        double hour;
        bool inside;
    } cases[] = {
        {{8, 18}, 8, true},     {{8, 18}, 17.75, true}, {{8, 18}, 18, false},
        {{8, 18}, 7.99, false}, {{22, 6}, 23, true},    {{22, 6}, 5.5, true},
        {{22, 6}, 6, false},    {{22, 6}, 12, false},   {{22, 6}, 22, true},
        {{9, 9}, 3, true},      {{9, 9}, 9, true},      {{-1e308, 1e308}, 12, true},
        {{-5, -1}, 12, false},  {{30, 40}, 12, false},  {{1e308, -1e308}, 12, false},
    };
    for (const auto& [work, hour, inside] : cases)
        EXPECT_EQ(Row::inHours(work, hour), inside)
            << work.start << "–" << work.end << " at " << hour;
}

TEST(Row, NamesItsHours) {
    const struct {
        std::vector<double> work;
        std::string text;
    } cases[] = {
        {{8, 18}, "8–18"},
        {{8.5, 17.25}, "8:30–17:15"},
        {{22, 6}, "22–6"},
        {{0, 24}, "0–24"},
        {{-0.0, 24.75}, "0–24:45"},
        {{9.125, 9.375}, "9:08–9:23"},  // halves go up
        {{8 + 1 / 60.0, 8.999}, "8:01–8:60"},
        {{-0.5, -1.5}, "-0:30–-1:30"},
    };
    for (const auto& [work, text] : cases)
        EXPECT_EQ(rowIn("UTC", {.work = work}).hoursText(), text);
    EXPECT_EQ(rowIn("UTC", {.work = {{-1e300, 1e308}}}).hoursText().size(), 302 + 3 + 309U)
        << "the largest numbers are written whole";
}

TEST(Row, NamesItsDays) {
    const struct {
        std::vector<int> workdays;
        const char* text;
    } cases[] = {
        {{2, 3, 4, 5, 6}, "Mon–Fri"},
        {{1, 2, 3, 4, 5}, "Sun–Thu"},
        {{7, 1, 2, 3, 4}, "Sat–Wed"},
        {{7}, "Sat"},
        {{6, 7}, "Fri–Sat"},
        {{1, 2}, "Sun–Mon"},
        {{2, 4, 6}, "Mon Wed Fri"},
        {{1, 3}, "Tue Sun"},
        {{1, 2, 3, 4, 6, 7}, "Fri–Wed"},
        {{}, "no working days"},
        {{1, 2, 3, 4, 5, 6, 7}, "every day"},
        {{0, 8, 99, -2147483648}, "no working days"},
        {{2, 3, 77}, "Mon–Tue"},
    };
    for (const auto& [workdays, text] : cases)
        EXPECT_EQ(rowIn("UTC", {.workdays = workdays}).daysText(), text);
}

TEST(Row, CountsItsOffsetInWholeMinutes) {
    const struct {
        const char* zone;
        const char* at;
        int minutes;
    } cases[] = {
        {"Asia/Kolkata", "2026-01-15 12:00", 330},
        {"Asia/Kathmandu", "2026-01-15 12:00", 345},
        {"America/St_Johns", "2026-01-15 12:00", -210},
        {"America/St_Johns", "2026-07-15 12:00", -150},
        {"UTC", "2026-07-15 12:00", 0},
        // Monrovia kept 44 minutes and 30 seconds behind until 1972.
        {"Africa/Monrovia", "1971-06-01 12:00", -44},
    };
    for (const auto& [zone, at, minutes] : cases)
        EXPECT_EQ(rowIn(zone).offsetMinutes(utc(at)), minutes) << zone << " " << at;
    EXPECT_EQ(rowIn("Asia/Tokyo").offsetMinutes(Instant::max()), 540);
}

TEST(Row, AbbreviatesItsZone) {
    const struct {
        const char* zone;
        std::optional<std::string> own;
        const char* at;
        const char* text;
    } cases[] = {
        {"Europe/London", std::nullopt, "2026-07-15 12:00", "BST"},
        {"Europe/London", std::nullopt, "2026-01-15 12:00", "GMT"},
        {"Europe/London", "UK", "2026-01-15 12:00", "UK"},
        {"Europe/London", "", "2026-01-15 12:00", "GMT"},
        {"Asia/Dubai", std::nullopt, "2026-01-15 12:00", "GMT+4"},
        {"Asia/Kathmandu", std::nullopt, "2026-01-15 12:00", "GMT+5:45"},
        {"America/Sao_Paulo", std::nullopt, "2026-01-15 12:00", "GMT-3"},
        {"UTC", "", "2026-01-15 12:00", "UTC"},
    };
    for (const auto& [zone, own, at, text] : cases)
        EXPECT_EQ(rowIn(zone, {.abbr = own}).abbr(utc(at)), text);
}

}  // namespace
}  // namespace noonward
