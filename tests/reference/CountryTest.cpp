#include "reference/Country.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace noonward {
namespace {

TEST(Country, IsFoundByZone) {
    const std::pair<const char*, const char*> rows[] = {
        {"Europe/London", "GB"}, {"Asia/Kolkata", "IN"}, {"Asia/Riyadh", "SA"},
        {"Asia/Calcutta", "IN"}, {"Asia/Saigon", "VN"},  {"Asia/Katmandu", "NP"},
        {"Asia/Rangoon", "MM"},  {"Europe/Kiev", "UA"},  {"US/Eastern", "US"},
        {"US/Pacific", "US"},    {"US/Central", "US"},
    };
    for (const auto& [zone, code] : rows)
        EXPECT_EQ(Country::code(zone), code) << zone;
    for (const char* zone : {"", "UTC", "Etc/GMT+3", "US/Mountain", "europe/london", "Europe"}) {
        EXPECT_EQ(Country::code(zone), std::nullopt) << zone;
    }
}

TEST(Country, IsNamedInBritishEnglish) {
    const std::pair<const char*, const char*> rows[] = {
        {"IN", "India"},
        {"GB", "United Kingdom"},
        {"US", "United States"},
        {"CI", "Côte d’Ivoire"},
        {"XK", "Kosovo"},
        {"QX", "QX"},
        {"", ""},
        {"in", "in"},
        {"I", "I"},
        {"IN_X", "IN_X"},
        {"🇮🇳", "🇮🇳"},
    };
    for (const auto& [code, name] : rows)
        EXPECT_EQ(Country::name(code), name);
}

TEST(Country, HasItsWorkingDays) {
    const std::pair<std::optional<std::string>, std::vector<int>> rows[] = {
        {std::nullopt, {2, 3, 4, 5, 6}}, {"GB", {2, 3, 4, 5, 6}}, {"AE", {2, 3, 4, 5, 6}},
        {"", {2, 3, 4, 5, 6}},           {"IR", {7, 1, 2, 3, 4}},
    };
    for (const auto& [code, days] : rows)
        EXPECT_EQ(Country::workingDays(code), days);
    for (const char* code :
         {"SA", "QA", "KW", "BH", "OM", "EG", "JO", "IL", "IQ", "DZ", "LY", "SY", "SD", "YE"}) {
        EXPECT_EQ(Country::workingDays(code), (std::vector<int>{1, 2, 3, 4, 5})) << code;
    }
}

}  // namespace
}  // namespace noonward
