#include "model/Rows.h"

#include <gtest/gtest.h>

#include "model/Travelling.h"
#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;
using test::zoneNamed;

const Instant winter = utc("2026-01-15 12:00");
const Instant summer = utc("2026-07-15 12:00");

Place place(const char* label, const char* zone) {
    return {.label = label, .shortName = label, .zone = zone};
}

Config configOf(std::vector<Place> places, std::vector<std::string> homeZones = {}) {
    Config config;
    config.homeZones = std::move(homeZones);
    config.places = std::move(places);
    config.places.front().home = true;
    config.favourites = {config.places.front().label};
    return config;
}

/// Each row's label, "=" and its zone; "*" for home.
std::vector<std::string> described(const std::vector<Row>& rows) {
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const Row& row : rows)
        texts.push_back((row.isHome ? "*" : "") + row.label + "=" + row.tz.identifier());
    return texts;
}
using Texts = std::vector<std::string>;

TEST(Travelling, FindsTheHomeZone) {
    const struct {
        const char* what;
        const char* zone;
        std::vector<std::string> homeZones;
        const char* found;
    } cases[] = {
        {"the place's own", "Europe/London", {"Asia/Tokyo"}, "Europe/London"},
        {"a place that follows the computer", "", {"Asia/Tokyo", "Asia/Seoul"}, "Asia/Tokyo"},
        {"an unknown zone", "Europe/Atlantis", {"Asia/Tokyo"}, "Asia/Tokyo"},
        {"no known zone at all", "", {"Europe/Atlantis", "Asia/Tokyo"}, "Europe/Dublin"},
        {"nothing to go by", "", {}, "Europe/Dublin"},
        {"a path", "../../etc/passwd", {}, "Europe/Dublin"},
    };
    for (const auto& c : cases) {
        const Config config = configOf({place("Home", c.zone)}, c.homeZones);
        EXPECT_EQ(homeZone(config, zoneNamed("Europe/Dublin")).identifier(), c.found) << c.what;
    }
}

TEST(Travelling, NamesWhereTheComputerIs) {
    const Config config = configOf({place("Home", ""), place("Our office", "Asia/Tokyo")});
    const struct {
        const char* here;
        const char* name;
    } cases[] = {
        {"Asia/Tokyo", "Our office"},
        {"Asia/Singapore", "Singapore"},
        {"America/Argentina/Ushuaia", "Ushuaia"},
        {"America/North_Dakota/New_Salem", "New Salem"},
        {"Pacific/Chatham", "Chatham"},
        {"UTC", "UTC"},
    };
    for (const auto& [here, name] : cases)
        EXPECT_EQ(hereName(config, zoneNamed(here)), name);
    EXPECT_EQ(homeName(config), "Home");
}

TEST(Travelling, KnowsWhetherOneIsAway) {
    const auto answer = [](const char* zone, bool here) { return Travel{zone, here}; };
    const struct {
        const char* what;
        const char* here;
        Instant at;
        std::optional<Travel> travel;
        bool elsewhere, away, planningHere, undecided;
    } cases[] = {
        {"at home", "Europe/London", winter, {}, false, false, false, false},
        {"in another zone that counts as home",
         "Europe/Jersey",
         winter,
         {},
         false,
         false,
         false,
         false},
        {"elsewhere, with home's time", "Europe/Lisbon", winter, {}, true, false, false, false},
        {"elsewhere, with home's time and an old answer", "Europe/Lisbon", winter,
         answer("Europe/Lisbon", true), true, false, false, false},
        {"with home's time in winter only",
         "Africa/Abidjan",
         winter,
         {},
         true,
         false,
         false,
         false},
        {"and no longer in summer", "Africa/Abidjan", summer, {}, true, true, false, true},
        {"away, not asked", "Asia/Tokyo", winter, {}, true, true, false, true},
        {"away, asked in another zone", "Asia/Tokyo", winter, answer("Asia/Seoul", true), true,
         true, false, true},
        {"away, planning from here", "Asia/Tokyo", winter, answer("Asia/Tokyo", true), true, true,
         true, false},
        {"away, planning from home", "Asia/Tokyo", winter, answer("Asia/Tokyo", false), true, true,
         false, false},
        {"back home with an old answer", "Europe/London", winter, answer("Asia/Tokyo", true), false,
         false, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Config config = configOf({place("Home", "")}, {"Europe/London", "Europe/Jersey"});
        const Whereabouts where = whereabouts(config, zoneNamed(c.here));
        EXPECT_EQ(where.elsewhere, c.elsewhere);
        EXPECT_EQ(where.away(c.at), c.away);
        EXPECT_EQ(planningHere(c.travel, where, c.at), c.planningHere);
        EXPECT_EQ(travelUndecided(c.travel, where, c.at), c.undecided);
    }
}

TEST(Rows, ResolveEachPlacesZone) {
    const Config config = configOf(
        {place("Home", ""), place("Nowhere", "Europe/Atlantis"), place("Tokyo", "Asia/Tokyo")},
        {"Europe/London"});
    EXPECT_EQ(described(placeRows(config, zoneNamed("Europe/London"))),
              (Texts{"*Home=Europe/London", "Nowhere=Europe/London", "Tokyo=Asia/Tokyo"}));
    EXPECT_EQ(described(placeRows(config, zoneNamed("Asia/Dubai"))),
              (Texts{"*Home=Europe/London", "Nowhere=Asia/Dubai", "Tokyo=Asia/Tokyo"}))
        << "home stays where it is while the computer travels";
    EXPECT_EQ(placeRows(config, zoneNamed("Asia/Dubai"))[2].id, 2);
}

TEST(Rows, TurnToWhereTheComputerIs) {
    const Config config =
        configOf({place("London", "Europe/London"), place("New York", "America/New_York"),
                  place("Tokyo", "Asia/Tokyo"), place("Osaka", "Asia/Tokyo")});
    const auto from = [&](const char* zone) {
        const TimeZone here = zoneNamed(zone);
        return rowsFromHere(placeRows(config, here), config, here);
    };
    EXPECT_EQ(described(from("Asia/Tokyo")),
              (Texts{"*Tokyo=Asia/Tokyo", "London=Europe/London", "New York=America/New_York",
                     "Osaka=Asia/Tokyo"}));
    EXPECT_EQ(from("Asia/Tokyo").front().id, 2) << "the place's own row moves";
    EXPECT_EQ(described(from("Europe/London")), described(placeRows(config, TimeZone::utc())));

    const std::vector<Row> added = from("America/Argentina/Buenos_Aires");
    EXPECT_EQ(described(added).front(), "*Buenos Aires=America/Argentina/Buenos_Aires");
    EXPECT_EQ(added.size(), 5U);
    EXPECT_EQ(added.front().id, Row::hereID);
    EXPECT_EQ(added.front().shortName, "BA");
    EXPECT_EQ(added.front().country, "AR");
    EXPECT_FALSE(added[1].isHome);
}

TEST(Rows, TakeInUtcAfterHome) {
    Config config = configOf({place("A", "Asia/Tokyo"), place("B", "Europe/London")});
    const TimeZone here = zoneNamed("Asia/Tokyo");
    EXPECT_EQ(described(withUtcRow(placeRows(config, here))),
              (Texts{"*A=Asia/Tokyo", "UTC=UTC", "B=Europe/London"}));
    config.places[0].home.reset();
    const std::vector<Row> homeless = withUtcRow(placeRows(config, here));
    EXPECT_EQ(described(homeless), (Texts{"UTC=UTC", "A=Asia/Tokyo", "B=Europe/London"}));
    EXPECT_EQ(homeless.front().id, Row::utcID);
    EXPECT_EQ(homeless.front().abbr(winter), "UTC");
    EXPECT_EQ(homeRowIndex(homeless), 0U);
}

TEST(Rows, LeaveOutTheHidden) {
    const Config config = configOf({place("TOKYO", "Asia/Tokyo"), place("Zürich", "Europe/Zurich"),
                                    place("İzmir", "Europe/Istanbul")});
    const std::vector<Row> rows = placeRows(config, TimeZone::utc());
    EXPECT_EQ(visibleRows(rows, {}).size(), 3U);
    EXPECT_EQ(described(visibleRows(rows, {"tokyo", "zürich", "elsewhere"})),
              (Texts{"İzmir=Europe/Istanbul"}));
    EXPECT_EQ(visibleRows(rows, {"TOKYO"}).size(), 3U) << "labels are stored in lower case";
}

TEST(Rows, PickTwoForTheNotch) {
    const std::vector<Place> places{place("London", "Europe/London"), place("Tokyo", "Asia/Tokyo"),
                                    place("Paris", "Europe/Paris")};
    const struct {
        std::vector<std::string> favourites;
        const char* second;
    } cases[] = {
        {{"London", "Paris"}, "Paris=Europe/Paris"},
        {{"paris"}, "Paris=Europe/Paris"},
        {{"LONDON", "london", "PARIS", "Tokyo"}, "Paris=Europe/Paris"},
        {{"London"}, "Tokyo=Asia/Tokyo"},
        {{}, "Tokyo=Asia/Tokyo"},
        // The first other name decides, though no place has it.
        {{"London", "Atlantis", "Paris"}, "Tokyo=Asia/Tokyo"},
    };
    for (const auto& [favourites, second] : cases) {
        Config config = configOf(places);
        config.favourites = favourites;
        EXPECT_EQ(described(notchRows(placeRows(config, TimeZone::utc()), config)),
                  (Texts{"*London=Europe/London", second}));
    }
    Config lateHome = configOf(places);
    std::swap(lateHome.places[0], lateHome.places[2]);
    lateHome.favourites = {};
    EXPECT_EQ(described(notchRows(placeRows(lateHome, TimeZone::utc()), lateHome)),
              (Texts{"*London=Europe/London", "Paris=Europe/Paris"}));
    const Config alone = configOf({place("London", "Europe/London")});
    EXPECT_EQ(notchRows(placeRows(alone, TimeZone::utc()), alone).size(), 1U);
}

}  // namespace
}  // namespace noonward
