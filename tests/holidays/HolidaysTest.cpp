#include "holidays/Holidays.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "fakes/FakeClock.h"
#include "fakes/FakeHttp.h"
#include "holidays/HolidayCache.h"
#include "support/TempFolder.h"

namespace noonward {
namespace {

using test::FakeClock;
using test::FakeHttp;
using test::TempFolder;
using Texts = std::vector<std::string>;

const DayKey republicDay{2026, 1, 26};
const DayKey christmas{2026, 12, 25};
const HttpResponse calendar{
    200,
    "BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20260126\nSUMMARY:Republic Day\n"
    "DESCRIPTION:Public holiday\nEND:VEVENT\nEND:VCALENDAR"};
const HttpResponse emptyCalendar{200, "BEGIN:VCALENDAR\nEND:VCALENDAR"};

constexpr Instant now =
    std::chrono::sys_days(std::chrono::year(2026) / std::chrono::August / 1) + hours(9);

/// What one run of the program sees.
struct OneRun {
    TempFolder folder;
    FakeClock clock{now};
    FakeHttp http;
    std::unique_ptr<Holidays> holidays = std::make_unique<Holidays>(folder.path(), clock, &http);
    int announced = 0;
    Subscription subscription = holidays->changes().subscribe([this] { ++announced; });

    void cache(const std::string& country, int daysAgo) {
        const CachedHolidays cached{secondsSince2001(now - hours(24 * daysAgo)),
                                    HolidayDays({{christmas, {"Christmas"}}})};
        writeHolidayCache(folder.path(), country, cached);
    }
};

std::string address(const std::string& key) {
    return "https://calendar.google.com/calendar/ical/en." + key +
           "%23holiday%40group.v.calendar.google.com/public/basic.ics";
}

TEST(HolidaysTest, AFreshCacheSparesTheDownload) {
    for (const auto& [daysAgo, isFresh] :
         std::vector<std::pair<int, bool>>{{10, true}, {30, true}, {31, false}, {-400, true}}) {
        OneRun run;
        run.cache("IN", daysAgo);
        run.holidays->ensure("IN");
        EXPECT_EQ(run.http.asked.empty(), isFresh) << daysAgo;
        EXPECT_EQ(*run.holidays->holiday("IN", christmas), Holiday{"Christmas"});
        EXPECT_EQ(run.announced, 1);
    }
}

TEST(HolidaysTest, ADownloadReplacesTheCalendarAndIsKept) {
    OneRun run;
    run.cache("IN", 31);
    run.holidays->ensure("IN");
    run.holidays->ensure("IN");  // nothing more
    EXPECT_EQ(run.http.asked, Texts{address("indian")});
    run.http.answer(calendar);
    EXPECT_EQ(*run.holidays->holiday("IN", republicDay), Holiday{"Republic Day"});
    EXPECT_FALSE(run.holidays->holiday("IN", christmas));
    EXPECT_FALSE(run.holidays->holiday("US", republicDay));
    EXPECT_EQ(run.announced, 2);

    const auto kept = readHolidayCache(run.folder.path(), "IN");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->fetched, secondsSince2001(now));
    EXPECT_EQ(kept->days, *run.holidays->days("IN"));
    EXPECT_EQ(test::namesIn(run.folder.path()), Texts{"IN.json"});
}

TEST(HolidaysTest, AsksTheNextAddressUntilOneHasACalendar) {
    const std::optional<HttpResponse> refused[] = {
        std::nullopt,
        HttpResponse{404, calendar.body},
        HttpResponse{204, ""},
        HttpResponse{200, "<html>Sorry</html>"},
        HttpResponse{200, calendar.body + "\xFF"},
    };
    for (const auto& first : refused) {
        for (const auto& second : refused) {
            OneRun run;
            run.holidays->ensure("IN");
            run.http.answer(first);
            EXPECT_FALSE(run.holidays->isMissing("IN"));
            EXPECT_EQ(run.http.asked, (Texts{address("indian"), address("in")}));
            run.http.answer(second);
            EXPECT_TRUE(run.holidays->isMissing("IN"));
            EXPECT_FALSE(run.holidays->days("IN"));
            EXPECT_EQ(run.announced, 1);
            EXPECT_TRUE(run.http.waiting.empty());
            EXPECT_TRUE(test::namesIn(run.folder.path()).empty());
        }
        OneRun run;
        run.holidays->ensure("IN");
        run.http.answer(first);
        run.http.answer(calendar);
        EXPECT_TRUE(run.holidays->holiday("IN", republicDay));
        EXPECT_FALSE(run.holidays->isMissing("IN"));
    }
}

TEST(HolidaysTest, AStaleCacheStaysWithoutANetwork) {
    OneRun run;
    run.cache("AE", 31);
    run.holidays->ensure("AE");
    EXPECT_EQ(run.http.asked, Texts{address("ae")});
    run.http.answer(std::nullopt);
    EXPECT_TRUE(run.holidays->holiday("AE", christmas));
    EXPECT_FALSE(run.holidays->isMissing("AE"));
    EXPECT_EQ(run.announced, 1);
}

TEST(HolidaysTest, ACalendarWithoutHolidaysIsNotMissing) {
    OneRun run;
    run.holidays->ensure("IN");
    run.http.answer(emptyCalendar);
    EXPECT_FALSE(run.holidays->isMissing("IN"));
    ASSERT_TRUE(run.holidays->days("IN"));
    EXPECT_TRUE(run.holidays->days("IN")->empty());
    EXPECT_TRUE(readHolidayCache(run.folder.path(), "IN"));
}

TEST(HolidaysTest, WithoutANetworkClientNothingIsAskedNorMissing) {
    OneRun run;
    run.cache("IN", 400);
    Holidays offline(run.folder.path(), run.clock, nullptr);
    offline.ensure("IN");
    offline.ensure("US");
    EXPECT_TRUE(offline.holiday("IN", christmas));
    EXPECT_FALSE(offline.isMissing("US"));
    EXPECT_FALSE(offline.days("US"));
}

TEST(HolidaysTest, CountriesDownloadSideBySide) {
    OneRun run;
    run.holidays->ensure("ZA");
    run.holidays->ensure("SA");
    run.holidays->ensure("LT");
    EXPECT_EQ(run.http.asked,
              (Texts{address("sa"), address("saudiarabian"), address("lithuanian")}));
    run.http.answer(std::nullopt);  // South Africa's second address then waits behind the others
    run.http.answer(calendar);
    run.http.answer(emptyCalendar);
    run.http.answer(calendar);
    EXPECT_EQ(run.http.asked.back(), address("za"));
    EXPECT_TRUE(run.holidays->holiday("ZA", republicDay));
    EXPECT_TRUE(run.holidays->holiday("SA", republicDay));
    EXPECT_TRUE(run.holidays->days("LT")->empty());
}

TEST(HolidaysTest, AnswersThatComeTooLateOrTwiceChangeNothing) {
    OneRun run;
    run.holidays->ensure("IN");
    run.holidays->ensure("US");
    const auto indian = run.http.waiting[0];
    indian(calendar);
    indian(std::nullopt);
    indian(emptyCalendar);
    EXPECT_TRUE(run.holidays->holiday("IN", republicDay));
    EXPECT_EQ(run.http.asked.size(), 2u);

    run.holidays.reset();
    run.http.waiting[1](calendar);
    EXPECT_EQ(test::namesIn(run.folder.path()), Texts{"IN.json"});
}

TEST(HolidaysTest, AddressesAndCodesStayAmongCountries) {
    const HolidaySource elsewhere{"https://localhost:8443", "group.example"};
    EXPECT_EQ(elsewhere.addresses("GB"),
              (Texts{"https://localhost:8443/calendar/ical/en.uk%23holiday%40group.example"
                     "/public/basic.ics",
                     "https://localhost:8443/calendar/ical/en.gb%23holiday%40group.example"
                     "/public/basic.ics"}));
    for (const char* code : {"", "I", "in", "INN", "../", "..", "I/", "\xC3\x89", "I\n"}) {
        OneRun run;
        EXPECT_TRUE(HolidaySource().addresses(code).empty());
        writeHolidayCache(run.folder / "below", code, {});
        EXPECT_TRUE(test::namesIn(run.folder.path()).empty()) << code;
        run.holidays->ensure(code);
        EXPECT_TRUE(run.http.asked.empty());
        EXPECT_TRUE(run.holidays->isMissing(code));
    }
}

TEST(HolidaysTest, UpcomingAreTheNextNationalHolidays) {
    OneRun run;
    writeHolidayCache(run.folder.path(), "GB",
                      {secondsSince2001(now), HolidayDays({{{2026, 12, 28}, {"Boxing Day"}},
                                                           {{2026, 8, 3}, {"Summer", "Scotland"}},
                                                           {{2026, 8, 31}, {"Summer Bank Holiday"}},
                                                           {{2027, 1, 1}, {"New Year's Day"}},
                                                           {{2026, 5, 4}, {"Early May"}},
                                                           {christmas, {"Christmas Day"}}})});
    run.holidays->ensure("GB");
    const auto names = [&](DayKey from, std::size_t count) {
        Texts result;
        for (const auto& [day, holiday] : run.holidays->upcoming("GB", from, count))
            result.push_back(day.text() + " " + holiday.name);
        return result;
    };
    EXPECT_EQ(names({2026, 8, 3}, 3), (Texts{"2026-08-31 Summer Bank Holiday",
                                             "2026-12-25 Christmas Day", "2026-12-28 Boxing Day"}))
        << "without the regional one";
    EXPECT_EQ(names({2026, 12, 26}, 3),
              (Texts{"2026-12-28 Boxing Day", "2027-01-01 New Year's Day"}));
    EXPECT_EQ(names({2026, 1, 1}, 1), Texts{"2026-05-04 Early May"});
    EXPECT_TRUE(names({2026, 1, 1}, 0).empty());
    EXPECT_TRUE(run.holidays->upcoming("US", {2026, 1, 1}).empty());
    EXPECT_EQ(run.holidays->upcoming("GB", {2000, 1, 1}).size(), 3u);
}

}  // namespace
}  // namespace noonward
