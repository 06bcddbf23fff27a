#include "time/TimeZone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/Instants.h"
#include "time/ZoneDatabase.h"

namespace noonward {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using test::utc;
using test::zoneNamed;

TEST(TimeZone, KnowsWhatTheDatabaseNames) {
    for (const auto identifier :
         {"UTC"sv, "Etc/UTC"sv, "GMT"sv, "Europe/London"sv, "America/Argentina/Buenos_Aires"sv,
          "Asia/Calcutta"sv, "Europe/Kiev"sv, "US/Eastern"sv, "EST5EDT"sv, "Etc/GMT+3"sv}) {
        EXPECT_TRUE(TimeZone::isKnown(identifier)) << identifier;
        const auto zone = TimeZone::find(identifier);
        ASSERT_TRUE(zone) << identifier;
        EXPECT_EQ(zone->identifier(), identifier);
    }
    for (const auto identifier : {""sv,
                                  "Factory"sv,
                                  "Nowhere/Else"sv,
                                  "europe/london"sv,
                                  "Europe/London "sv,
                                  "Europe/London\0"sv,
                                  "Europe"sv,
                                  "posix/Europe/London"sv,
                                  "right/Europe/London"sv,
                                  "../zoneinfo/Europe/London"sv,
                                  "/usr/share/zoneinfo/Europe/London"sv,
                                  "./UTC"sv,
                                  "EST5"sv,
                                  "<+03>-3"sv,
                                  "CET-1CEST,M3.5.0,M10.5.0/3"sv,
                                  ":Europe/London"sv,
                                  "Fixed/UTC+05:30:00"sv,
                                  "libc:localtime"sv,
                                  "localtime"sv,
                                  "zone.tab"sv}) {
        EXPECT_FALSE(TimeZone::isKnown(identifier)) << identifier;
        EXPECT_FALSE(TimeZone::find(identifier)) << identifier;
    }
}

TEST(TimeZone, ListsTheZonesPeopleLiveIn) {
    const auto& listed = TimeZone::listed();
    EXPECT_GT(listed.size(), 400U);
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
    EXPECT_EQ(std::adjacent_find(listed.begin(), listed.end()), listed.end());
    EXPECT_TRUE(std::binary_search(listed.begin(), listed.end(), "Asia/Kolkata"));
    EXPECT_FALSE(std::binary_search(listed.begin(), listed.end(), "Asia/Calcutta"));
    for (const auto& identifier : listed)
        EXPECT_TRUE(TimeZone::isKnown(identifier)) << identifier;
}

TEST(TimeZone, TellsOffsetsAndAbbreviations) {
    const struct {
        const char* zone;
        const char* at;
        int minutes;
        const char* abbreviation;
    } rows[] = {
        {"UTC", "2026-07-01 00:00", 0, "UTC"},
        {"Europe/London", "2026-03-29 00:59:59", 0, "GMT"},
        {"Europe/London", "2026-03-29 01:00", 60, "BST"},
        {"Europe/London", "1970-06-01 00:00", 60, "BST"},  // standard time then
        {"Asia/Kathmandu", "2026-07-01 00:00", 345, "+0545"},
        {"America/St_Johns", "2026-01-01 00:00", -210, "NST"},
        {"Asia/Dubai", "2026-07-01 00:00", 240, "+04"},
        // The abbreviation changes, the offset does not.
        {"Europe/Dublin", "1968-10-26 00:00", 60, "IST"},
        {"Africa/Casablanca", "2026-02-16 00:00", 0, "+00"},
    };
    for (const auto& row : rows) {
        const TimeZone zone = zoneNamed(row.zone);
        EXPECT_EQ(zone.offset(utc(row.at)), minutes(row.minutes)) << row.zone << ' ' << row.at;
        EXPECT_EQ(zone.abbreviation(utc(row.at)), row.abbreviation) << row.zone << ' ' << row.at;
    }
}

TEST(TimeZone, SpansRunFromChangeToChange) {
    const TimeZone london = zoneNamed("Europe/London");
    const auto winter = london.span(utc("2026-03-29 00:59:59"));
    EXPECT_EQ(winter.from, utc("2025-10-26 01:00"));
    EXPECT_EQ(winter.until, utc("2026-03-29 01:00"));
    EXPECT_EQ(winter.offset, hours(0));
    const auto summer = london.span(winter.until);
    EXPECT_EQ(summer.from, winter.until);
    EXPECT_EQ(summer.until, utc("2026-10-25 01:00"));

    // A war-time zone whose clock stood still while its name changed.
    const auto war = zoneNamed("America/New_York").span(utc("1945-08-14 22:00"));
    EXPECT_EQ(war.from, utc("1942-02-09 07:00"));
    EXPECT_EQ(war.until, utc("1945-09-30 06:00"));

    const auto ever = TimeZone::utc().span(utc("2026-03-29 00:00"));
    EXPECT_EQ(ever.from, Instant::min());
    EXPECT_GE(ever.until, utc("2400-01-01 00:00"));
}

TEST(TimeZone, SpansHoldFarAway) {
    for (const char* identifier :
         {"America/New_York", "Africa/Casablanca", "Asia/Kolkata", "UTC"}) {
        const TimeZone zone = zoneNamed(identifier);
        std::vector<Instant> instants = {Instant::min(), Instant::max(), utc("2399-12-31 23:59:59"),
                                         utc("2400-01-01 00:00"), utc("3000-03-09 06:59:59")};
        for (int days = 0; days < 400; ++days) {
            instants.push_back(utc("2437-06-01 00:00") + hours(24 * days));
        }
        for (const Instant at : instants) {
            const auto span = zone.span(at);
            EXPECT_EQ(span.offset, zone.offset(at));
            const Instant inside = std::clamp(at, TimeZone::earliest, TimeZone::latest);
            EXPECT_LE(span.from, inside) << identifier;
            EXPECT_GT(span.until, inside) << identifier;
            const Instant last = std::min(span.until, TimeZone::latest) - seconds(1);
            EXPECT_EQ(seconds(zone.handle().lookup(last).offset), span.offset) << identifier;
        }
    }
}

TEST(TimeZone, TakesUpReplacedData) {
    const TimeZone held = zoneNamed("Antarctica/Vostok");
    const Instant at = utc("2026-07-01 00:00");
    const seconds before = held.offset(at);
    const auto replacing = [&](const std::string& bytes) {
        return [bytes](const std::string& identifier) {
            return identifier == "Antarctica/Vostok" ? std::optional(bytes) : std::nullopt;
        };
    };
    EXPECT_FALSE(TimeZone::takeUpReplacedData()) << "nothing was replaced";
    for (const std::string& broken : {""s, "TZif"s, std::string(500, 'T')}) {
        EXPECT_FALSE(TimeZone::takeUpReplacedData(replacing(broken)));
        EXPECT_EQ(held.offset(at), before);
    }
    const auto tokyo = replacing(*zonedatabase::readFile("Asia/Tokyo"));
    EXPECT_TRUE(TimeZone::takeUpReplacedData(tokyo));
    EXPECT_EQ(held.offset(at), hours(9));
    EXPECT_EQ(held.abbreviation(at), "JST");
    EXPECT_FALSE(TimeZone::takeUpReplacedData(tokyo));

    EXPECT_TRUE(TimeZone::takeUpReplacedData()) << "back to what the system has";
    EXPECT_EQ(held.offset(at), before);
}

TEST(ZoneDatabase, ReadsTheTable) {
    const auto rows = zonedatabase::parseTable(
        "# tz zone descriptions\n"
        "\n"
        "AD\t+4230+00131\tEurope/Andorra\n"
        "AE\t\t+2518+05518\t\tAsia/Dubai\tthe rest\n"
        "XX\tno zone\n"
        "#GB\t+513030-0000731\tEurope/London\n"
        "\t\t\n"
        "IN\t+2232+08822\tAsia/Kolkata");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].country + rows[0].zone, "ADEurope/Andorra");
    EXPECT_EQ(rows[1].country + rows[1].zone, "AEAsia/Dubai");
    EXPECT_EQ(rows[2].country + rows[2].zone, "INAsia/Kolkata");
    EXPECT_TRUE(zonedatabase::parseTable("").empty());
}

TEST(ZoneDatabase, ReadsZonesAndLinks) {
    const std::string text =
        "# version 2026a\nR d 1916 o - Jun 14 23s 1 S\nZ Europe/London -0:1:15 - LMT 1847\n"
        "0 G %s 1968 O 27\nL Europe/London GB\nL Etc/UTC\nZ\nZ \n";
    EXPECT_EQ(zonedatabase::parseZonesAndLinks(text),
              (std::vector<std::string>{"Europe/London", "GB"}));
}

}  // namespace
}  // namespace noonward
