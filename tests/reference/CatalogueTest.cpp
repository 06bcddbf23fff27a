#include "reference/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "reference/Country.h"

namespace noonward {
namespace {

TEST(Catalogue, IsWhole) {
    EXPECT_EQ(Cities::catalogueText().size(), 5644U);
    const auto& cities = Cities::curated();
    ASSERT_EQ(cities.size(), 147U);
    const auto withAliases = [&](std::size_t count) {
        return std::count_if(cities.begin(), cities.end(),
                             [&](const City& city) { return city.aliases.size() == count; });
    };
    EXPECT_EQ(withAliases(0), 125);
    EXPECT_EQ(withAliases(1), 21);
    EXPECT_EQ(withAliases(2), 1);
    EXPECT_EQ(cities.front(), (City{"Bangalore", "India", "Asia/Kolkata", "BLR", {"Bengaluru"}}));
    EXPECT_EQ(cities.back(), (City{"Fiji", "Fiji", "Pacific/Fiji", "SUV", {"Suva"}}))
        << "the last row";
}

TEST(Catalogue, NamesEachCityOnceInAZoneOfItsOwn) {
    std::set<std::string> ids;
    for (const City& city : Cities::curated()) {
        EXPECT_TRUE(ids.insert(city.id()).second) << city.id();
        EXPECT_TRUE(Country::code(city.zone)) << city.id();
        EXPECT_FALSE(city.name.empty() || city.country.empty() || city.shortName.empty());
        for (const std::string& alias : city.aliases)
            EXPECT_FALSE(alias.empty()) << city.id();
    }
}

TEST(Catalogue, LeavesOutRowsThatCannotBeUsed) {
    const auto cities = Cities::parseCatalogue(
        "\n  Paris|France|Europe/Paris|PAR \t\r\n"
        "Three|Fields|Europe/Paris\n"
        "Atlantis|Nowhere|Sea/Atlantis|ATL\n"
        "No Zone|Nowhere||NZ\n"
        "|| Europe/Paris|\n"
        "||Europe/Paris|\n"
        "Rome|Italy|Europe/Rome|ROM||Roma|");
    ASSERT_EQ(cities.size(), 3U);
    EXPECT_EQ(cities[0], (City{"Paris", "France", "Europe/Paris", "PAR", {}}));
    EXPECT_EQ(cities[1], (City{"", "", "Europe/Paris", "", {}}));
    EXPECT_EQ(cities[2], (City{"Rome", "Italy", "Europe/Rome", "ROM", {"", "Roma", ""}}));
    EXPECT_TRUE(Cities::parseCatalogue("").empty());
}

TEST(Catalogue, MakesCitiesOfZones) {
    const auto cities = Cities::citiesOfZones(
        {"Europe/London", "America/Argentina/Buenos_Aires", "America/Port-au-Prince", "UTC", "GMT",
         "Etc/UTC", "SystemV/EST5", "US/Eastern", "Canada/Atlantic", "Brazil/East",
         "Chile/Continental", "Mexico/General", "Asia/Calcutta", "/Odd//Zone_/", ""});
    const std::vector<City> expected = {
        {"London", "Europe", "Europe/London", "LON", {}},
        {"Buenos Aires", "America", "America/Argentina/Buenos_Aires", "BA", {}},
        {"Port-au-Prince", "America", "America/Port-au-Prince", "PP", {}},
        {"Calcutta", "Asia", "Asia/Calcutta", "CAL", {}},
        {"Zone ", "Odd", "/Odd//Zone_/", "ZON", {}},
    };
    EXPECT_EQ(cities, expected);
}

TEST(Catalogue, OrdersCitiesOfZonesByIdentifier) {
    const auto& cities = Cities::zones();
    EXPECT_GT(cities.size(), 400U);
    EXPECT_EQ(cities.front().zone, "Africa/Abidjan");
    EXPECT_TRUE(std::is_sorted(cities.begin(), cities.end(),
                               [](const City& a, const City& b) { return a.zone < b.zone; }));
}

}  // namespace
}  // namespace noonward
