#include "config/Config.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace noonward {
namespace {

TimeZone zone(const char* identifier) {
    return TimeZone::find(identifier).value();
}

std::vector<std::string> labels(const Config& config) {
    std::vector<std::string> result;
    for (const Place& place : config.places)
        result.push_back(place.label);
    return result;
}

using Texts = std::vector<std::string>;

TEST(ConfigTest, DefaultsNameTheComputersPlaceAndThreeOthers) {
    const struct {
        const char* here;
        Texts labels;
        const char* shortName;
    } cases[] = {
        {"Asia/Kolkata", {"Bangalore", "London", "New York", "Singapore"}, "BAN"},
        {"Europe/London", {"London", "New York", "Singapore", "Tokyo"}, "LON"},
        {"Asia/Tokyo", {"Tokyo", "London", "New York", "Singapore"}, "TOK"},
        {"Pacific/Chatham", {"Chatham", "London", "New York", "Singapore"}, "CHA"},
        {"America/Port-au-Prince", {"Port-au-Prince", "London", "New York", "Singapore"}, "PP"},
        {"America/Argentina/Rio_Gallegos",
         {"Rio Gallegos", "London", "New York", "Singapore"},
         "RG"},
        {"UTC", {"UTC", "London", "New York", "Singapore"}, "UTC"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.here);
        const Config config = Config::defaults(zone(test.here));
        EXPECT_EQ(labels(config), test.labels);
        const Place home{
            .label = test.labels[0], .shortName = test.shortName, .zone = "", .home = true};
        EXPECT_EQ(config.places[0], home);
        EXPECT_EQ(config.favourites, Texts(test.labels.begin(), test.labels.begin() + 2));
        EXPECT_EQ(config.homeZones, Texts{test.here});
    }
    EXPECT_EQ(Config::defaults(zone("Asia/Kolkata")).places[2],
              (Place{.label = "New York", .shortName = "NYC", .zone = "America/New_York"}));
}

TEST(ConfigTest, TidyingPutsHomeInFrontAndKeepsTwoFavourites) {
    const struct {
        const char* name;
        Texts places;  // "*" in front: home
        Texts favourites;
        Texts tidiedPlaces;
        Texts tidiedFavourites;
    } cases[] = {
        {"stored spelling stays, two at most",
         {"*Bangalore", "Tokyo", "London"},
         {"tokyo", "BANGALORE", "London"},
         {"Bangalore", "Tokyo", "London"},
         {"Bangalore", "tokyo"}},
        {"unknown favourites go", {"*A", "B"}, {"C", "", "D"}, {"A", "B"}, {"A"}},
        {"of two homes the first", {"A", "*B", "*C"}, {"C"}, {"B", "A", "C"}, {"B", "C"}},
        {"no home: the first place", {"A", "B"}, {"B"}, {"A", "B"}, {"A", "B"}},
        {"last place is home", {"A", "B", "*C"}, {}, {"C", "A", "B"}, {"C"}},
        {"beyond ASCII",
         {"*Zürich", "STRASSE"},
         {"ZÜRICH", "Straße"},
         {"Zürich", "STRASSE"},
         {"Zürich", "Straße"}},
        {"twins of home are no favourites of their own",
         {"*Rome", "ROME", "Oslo"},
         {"ROME", "Oslo"},
         {"Rome", "ROME", "Oslo"},
         {"Rome", "Oslo"}},
        {"the same favourite twice", {"*A", "B"}, {"B", "b"}, {"A", "B"}, {"A", "B"}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Config config;
        config.meetingMinutes = 45;
        config.favourites = test.favourites;
        for (const std::string& text : test.places) {
            const bool home = text[0] == '*';
            config.places.push_back({.label = home ? text.substr(1) : text, .home = home});
        }
        const Config tidied = config.tidied(zone("UTC"));
        EXPECT_EQ(labels(tidied), test.tidiedPlaces);
        EXPECT_EQ(tidied.favourites, test.tidiedFavourites);
        EXPECT_EQ(tidied.meetingMinutes, 45);
    }
}

TEST(ConfigTest, AListWithoutPlacesGivesDefaultsInEveryField) {
    Config config;
    config.welcomed = true;
    config.hourFormat = "12h";
    config.travel = Travel{"Asia/Tokyo", true};
    EXPECT_EQ(config.homeIndex(), 0u);
    EXPECT_EQ(config.tidied(zone("Asia/Kolkata")), Config::defaults(zone("Asia/Kolkata")));
}

// Whatever comes in, what comes out is in good order, has lost no place, and stays as it is.
TEST(ConfigTest, TidyingTwiceIsTidyingOnce) {
    const Texts names = {"A", "a", "B", "b", "ß", "SS", "ss", "İ", "i̇", "", " a", "\xFF", "é", "É"};
    std::mt19937 random(20260801);
    const auto pick = [&](std::size_t count) { return random() % count; };
    for (int round = 0; round < 3000; ++round) {
        Config config;
        for (auto n = 1 + pick(7); n > 0; --n) {
            Place place{.label = names[pick(names.size())], .zone = std::to_string(n)};
            if (pick(2)) place.home = pick(2) == 0;
            config.places.push_back(place);
        }
        for (auto n = pick(6); n > 0; --n)
            config.favourites.push_back(names[pick(names.size())]);

        const Config once = config.tidied(zone("UTC"));
        ASSERT_EQ(once.tidied(zone("UTC")), once);

        auto expected = config.places;
        std::swap(expected[0], expected[config.homeIndex()]);
        EXPECT_EQ(once.places[0].zone, expected[0].zone);
        EXPECT_EQ(std::count_if(once.places.begin(), once.places.end(),
                                [](const Place& place) { return place.home.has_value(); }),
                  1);
        const auto byZone = [](const Place& a, const Place& b) { return a.zone > b.zone; };
        EXPECT_TRUE(std::is_sorted(once.places.begin() + 1, once.places.end(), byZone));
        EXPECT_EQ(once.places.size(), config.places.size());
        ASSERT_LE(once.favourites.size(), 2u);
        EXPECT_EQ(once.favourites[0], once.places[0].label);
        if (once.favourites.size() == 2) {
            EXPECT_FALSE(Config::same(once.favourites[1], once.favourites[0]));
        }
    }
}

}  // namespace
}  // namespace noonward
