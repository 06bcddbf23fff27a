#include "model/PlaceEditing.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::zoneNamed;

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

Config threePlaces() {
    Config config;
    config.places = {{.label = "Home", .shortName = "H", .zone = "", .home = true},
                     {.label = "London", .shortName = "LON", .zone = "Europe/London"},
                     {.label = "Tokyo", .shortName = "TYO", .zone = "Asia/Tokyo"}};
    config.favourites = {"Home", "Tokyo"};
    return config;
}

std::vector<std::string> labels(const Config& config) {
    std::vector<std::string> found;
    for (const Place& place : config.places)
        found.push_back((place.home == true ? "*" : "") + place.label);
    return found;
}
using Labels = std::vector<std::string>;

TEST(PlaceEditing, RefusesWhatMayNotBe) {
    const Config config = threePlaces();
    const struct {
        const char* what;
        std::function<editing::Edited(int)> edit;
        bool ofHome;  // whether home may be edited so
    } edits[] = {
        {"remove", [&](int i) { return editing::remove(config, i); }, false},
        {"move down", [&](int i) { return editing::move(config, i, 1); }, false},
        {"set home", [&](int i) { return editing::setHome(config, i); }, false},
        {"star", [&](int i) { return editing::toggleFavourite(config, i); }, false},
        {"rename", [&](int i) { return editing::rename(config, i, "x"); }, true},
        {"nudge", [&](int i) { return editing::nudgeWork(config, i, true, 0.5); }, true},
        {"workday", [&](int i) { return editing::toggleWorkday(config, i, 1, TimeZone::utc()); },
         true},
        {"reset", [&](int i) { return editing::resetWeek(config, i); }, true},
        {"holidays", [&](int i) { return editing::setHolidays(config, i, false); }, true},
        {"day off", [&](int i) { return editing::addDayOff(config, i, "2026-01-01"); }, true},
        {"no day off", [&](int i) { return editing::removeDayOff(config, i, "2026-01-01"); }, true},
    };
    for (const auto& [what, edit, ofHome] : edits) {
        EXPECT_EQ(edit(0).has_value(), ofHome) << what << " home";
        EXPECT_TRUE(edit(1)) << what;
        for (const int outside : {3, -1, most, least})
            EXPECT_FALSE(edit(outside)) << what << " " << outside;
    }
    for (const int outside : {3, -1, most, least}) {
        EXPECT_FALSE(editing::isHome(config, outside));
        EXPECT_FALSE(editing::isFavourite(config, outside));
    }
    for (const auto& [index, by] : {std::pair{1, -1}, {2, 1}, {2, most}, {1, least}, {2, -2}})
        EXPECT_FALSE(editing::move(config, index, by)) << index << " by " << by;
}

TEST(PlaceEditing, AddsCitiesUpToTheMost) {
    const City lagos{.name = "Lagos",
                     .country = "Nigeria",
                     .zone = "Africa/Lagos",
                     .shortName = "LOS",
                     .aliases = {}};
    Config config = threePlaces();
    EXPECT_FALSE(editing::has(config, lagos));
    config = editing::add(config, lagos, 4).value();
    EXPECT_EQ(config.places.back(),
              (Place{.label = "Lagos", .shortName = "LOS", .zone = "Africa/Lagos"}));
    EXPECT_TRUE(editing::has(config, lagos));
    EXPECT_FALSE(editing::add(config, lagos, 4));

    config.places.back().label = "LAGOS";
    EXPECT_TRUE(editing::has(config, lagos)) << "labels are compared ignoring case";
    config.places.back().zone = "africa/lagos";
    EXPECT_FALSE(editing::has(config, lagos)) << "zones exactly";
}

TEST(PlaceEditing, MovesAndRemovesGuests) {
    EXPECT_EQ(labels(*editing::move(threePlaces(), 1, 1)), (Labels{"*Home", "Tokyo", "London"}));
    EXPECT_EQ(labels(*editing::move(threePlaces(), 2, -1)), (Labels{"*Home", "Tokyo", "London"}));
    EXPECT_EQ(editing::move(threePlaces(), 2, 0), threePlaces());
    EXPECT_EQ(labels(*editing::remove(threePlaces(), 1)), (Labels{"*Home", "Tokyo"}));
}

TEST(PlaceEditing, ChoosesHomeAndFavourite) {
    const Config moved = editing::setHome(threePlaces(), 2).value();
    EXPECT_EQ(labels(moved), (Labels{"Home", "London", "*Tokyo"}));
    EXPECT_EQ(moved.favourites, (Labels{"Tokyo", "Home"}));
    const Config tidied = moved.tidied(TimeZone::utc());
    EXPECT_EQ(labels(tidied), (Labels{"*Tokyo", "Home", "London"}));
    EXPECT_EQ(tidied.favourites, (Labels{"Tokyo", "Home"}));

    EXPECT_EQ(editing::toggleFavourite(threePlaces(), 1)->favourites, (Labels{"Home", "London"}));
    EXPECT_EQ(editing::toggleFavourite(threePlaces(), 2)->favourites, (Labels{"Home"}));
    Config config = threePlaces();
    config.favourites = {"Home", "TOKYO", "tokyo"};
    EXPECT_TRUE(editing::isFavourite(config, 2));
    EXPECT_EQ(editing::toggleFavourite(config, 2)->favourites, (Labels{"Home"}));
}

TEST(PlaceEditing, RenamesWithItsFavourite) {
    Config config = threePlaces();
    config.favourites = {"home", "TOKYO"};
    const Config renamed = editing::rename(config, 2, "Edo").value();
    EXPECT_EQ(renamed.favourites, (Labels{"home", "Edo"}));
    EXPECT_EQ(renamed.places[2].label, "Edo");
    EXPECT_EQ(editing::rename(config, 0, "Flat")->favourites, (Labels{"Flat", "TOKYO"}));
    EXPECT_EQ(editing::rename(config, 1, "")->favourites, config.favourites);
}

TEST(PlaceEditing, NudgesTheWorkingHours) {
    using Work = std::optional<std::vector<double>>;
    const double huge = std::numeric_limits<double>::max();
    const struct {
        const char* what;
        Work work;
        bool start;
        double by;
        Work nudged;
    } cases[] = {
        {"later end", {}, false, 0.5, {{8, 18.5}}},
        {"back to the default", {{8, 18.5}}, false, -0.5, {}},
        {"earlier start", {}, true, -0.5, {{7.5, 18}}},
        {"not before midnight", {{0.25, 18}}, true, -0.5, {{0, 18}}},
        {"not after midnight", {{8, 23.75}}, false, 0.5, {{8, 24}}},
        {"not to nothing", {{17.5, 18}}, true, 0.5, {{17.5, 18}}},
        {"not to nothing, from the default", {}, true, 10, {}},
        {"across midnight", {{8, 18}}, true, 14, {{22, 18}}},
        {"a list of one number counts as the default", {{9}}, true, 1, {{9, 18}}},
        {"one that nudging leaves there", {{9}}, true, 0, {}},
        {"so does one of three", {{9, 17, 20}}, true, 1, {{9, 18}}},
        {"refused, a redundant one stays", {{8, 18}}, true, 10, {{8, 18}}},
        {"refused, a malformed one stays", {{9, 17, 20}}, false, -10, {{9, 17, 20}}},
        {"hours outside the day are taken in", {{-huge, 18}}, true, -huge, {{0, 18}}},
        {"only the nudged end", {{8, 99}}, true, 0.5, {{8.5, 99}}},
        {"overflow", {{8, huge}}, false, huge, {{8, 24}}},
    };
    for (const auto& c : cases) {
        Config config = threePlaces();
        config.places[1].work = c.work;
        EXPECT_EQ(editing::nudgeWork(config, 1, c.start, c.by)->places[1].work, c.nudged) << c.what;
    }
}

TEST(PlaceEditing, ChoosesWorkdays) {
    const auto toggled = [](const char* zone, const Place& place, int weekday) {
        Config config = threePlaces();
        config.places[1] = place;
        // The place follows the computer.
        return editing::toggleWorkday(config, 1, weekday, zoneNamed(zone))->places[1].workdays;
    };
    using Days = std::optional<std::vector<int>>;
    EXPECT_EQ(toggled("Europe/London", {}, 7), (Days{{2, 3, 4, 5, 6, 7}}));
    EXPECT_EQ(toggled("Europe/London", {}, 6), (Days{{2, 3, 4, 5}}));
    EXPECT_EQ(toggled("Europe/London", {.workdays = {{5, 4, 3, 2}}}, 6), Days{});
    EXPECT_EQ(toggled("Asia/Riyadh", {.workdays = {{2, 3, 4, 5}}}, 1), Days{});
    EXPECT_EQ(toggled("Asia/Riyadh", {.workdays = {{1, 2, 3, 4}}, .holidays = false}, 5), Days{})
        << "the country's week holds with its holidays off, too";
    EXPECT_EQ(toggled("UTC", {.workdays = {{3}}}, 3), (Days{std::vector<int>{}}))
        << "no working days at all are stored as such";
}

TEST(PlaceEditing, KeepsDaysOff) {
    using Keys = std::optional<std::vector<std::string>>;
    const auto added = [](const Keys& keys, const char* key) {
        Config config = threePlaces();
        config.places[1].daysOff = keys;
        return editing::addDayOff(config, 1, key)->places[1].daysOff;
    };
    const auto removed = [](const Keys& keys, const char* key) {
        Config config = threePlaces();
        config.places[1].daysOff = keys;
        return editing::removeDayOff(config, 1, key)->places[1].daysOff;
    };
    EXPECT_EQ(added({}, "2026-05-01"), (Keys{{"2026-05-01"}}));
    EXPECT_EQ(added({{"2026-05-01", "2025-12-24", "2026-05-01"}}, "2026-04-30"),
              (Keys{{"2025-12-24", "2026-04-30", "2026-05-01"}}));
    EXPECT_EQ(added({{"2026-05-01"}}, "2026-05-01"), (Keys{{"2026-05-01"}}));
    EXPECT_EQ(removed({{"2026-05-01", "2025-12-24", "2026-05-01"}}, "2026-05-01"),
              (Keys{{"2025-12-24"}}));
    EXPECT_EQ(removed({{"2026-05-01"}}, "2026-05-01"), Keys{});
    EXPECT_EQ(removed({}, "2026-05-01"), Keys{});
}

TEST(PlaceEditing, ResetsTheWeekButNotTheDaysOff) {
    Config config = threePlaces();
    config.places[1].work = {{9, 17}};
    config.places[1].workdays = {{1}};
    config = editing::setHolidays(config, 1, false).value();
    EXPECT_EQ(config.places[1].holidays, false);
    EXPECT_EQ(editing::setHolidays(config, 1, true)->places[1].holidays, std::nullopt);
    config = editing::addDayOff(config, 1, "2026-05-01").value();

    Config expected = threePlaces();
    expected.places[1].daysOff = {{"2026-05-01"}};
    EXPECT_EQ(editing::resetWeek(config, 1), expected);
}

}  // namespace
}  // namespace noonward
