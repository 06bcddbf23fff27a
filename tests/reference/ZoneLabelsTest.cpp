#include "reference/ZoneLabels.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "support/Instants.h"
#include "support/LibraryZone.h"

namespace noonward {
namespace {

using namespace std::string_view_literals;
using test::utc;
using test::zoneNamed;

TEST(ZoneLabels, ShortLabels) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"London", "LON"},
        {"Tokyo", "TOK"},
        {"New York", "NY"},
        {"Salt Lake City", "SLC"},
        {"Ho Chi Minh City", "HCM"},
        {"Rio de Janeiro", "RJ"},
        {"Port-au-Prince", "PP"},
        {"São Paulo", "SP"},
        {"Malé", "MAL"},
        {"Washington, DC", "WD"},
        {"the hague", "THE"},
        {"St. John's", "SJ"},
        {"Ürümqi Éden", "ÜÉ"},
        {"El aaiún", "EL "},
        {"  New -- York  ", "NY"},
        {"ßa", "SSA"},
        {"E\u0301vry E\u0301ze", "E\u0301E\u0301"},
        {"Ab", "AB"},
        {"", ""},
        {" ", " "},
        {"\xC3", "\xC3"},
        {"A\0b"sv, "A\0B"sv},
    };
    for (const auto& [name, label] : rows)
        EXPECT_EQ(shortLabel(name), label) << name;
}

TEST(ZoneLabels, Abbreviations) {
    const struct {
        const char* zone;
        const char* at;
        std::optional<std::string> letters;
    } rows[] = {
        {"Europe/London", "2026-07-01 00:00", "BST"},
        {"Europe/London", "2026-12-01 00:00", "GMT"},
        {"America/New_York", "2026-12-01 00:00", "EST"},
        {"Asia/Kolkata", "2026-12-01 00:00", "IST"},
        {"GMT", "2026-12-01 00:00", "UTC"},
        {"UTC", "2026-12-01 00:00", "UTC"},
        {"Etc/UTC", "2026-12-01 00:00", "UTC"},
        {"Etc/GMT", "2026-12-01 00:00", "GMT"},
        {"Asia/Dubai", "2026-12-01 00:00", std::nullopt},
        {"America/Sao_Paulo", "2026-12-01 00:00", std::nullopt},
        {"Asia/Kathmandu", "2026-12-01 00:00", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(tzAbbreviation(zoneNamed(row.zone), utc(row.at)), row.letters) << row.zone;
    }
}

// The C library, put into the zone, has the same letters.
TEST(ZoneLabels, AbbreviationsAreTheLibrarys) {
    for (const std::string& identifier : TimeZone::listed()) {
        const test::LibraryZone library(identifier);
        const TimeZone zone = zoneNamed(identifier.c_str());
        for (const char* at : {"1995-01-15 00:00", "1995-07-15 00:00", "2026-01-15 00:00",
                               "2026-07-15 00:00", "2045-07-15 00:00"}) {
            const std::time_t when = std::chrono::system_clock::to_time_t(utc(at));
            std::tm fields{};
            localtime_r(&when, &fields);
            const std::string letters = fields.tm_zone;
            const bool bare = letters.empty() || letters[0] == '+' || letters[0] == '-';
            EXPECT_EQ(tzAbbreviation(zone, utc(at)), bare ? std::nullopt : std::optional(letters))
                << identifier << ' ' << at;
        }
    }
}

TEST(ZoneLabels, OffsetsStandInForLetters) {
    const std::pair<int, const char*> rows[] = {
        {0, "GMT"},          {4 * 3600, "GMT+4"},   {-3 * 3600, "GMT-3"},     {-12600, "GMT-3:30"},
        {20700, "GMT+5:45"}, {14 * 3600, "GMT+14"}, {-1800, "GMT-0:30"},      {3900, "GMT+1:05"},
        {-59, "GMT"},        {-75, "GMT-0:01"},     {5 * 3600 + 59, "GMT+5"},
    };
    for (const auto& [offset, text] : rows)
        EXPECT_EQ(offsetAbbreviation(seconds(offset)), text);
}

}  // namespace
}  // namespace noonward
