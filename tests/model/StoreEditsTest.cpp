#include <gtest/gtest.h>

#include <functional>

#include "fakes/StoreWorld.h"
#include "reference/City.h"

namespace noonward {
namespace {

using test::StoreWorld;
using test::threePlaces;
using test::utc;
using test::zoneNamed;

TEST(StoreEdits, AreTidiedSavedAndShown) {
    const City lagos{.name = "Lagos",
                     .country = "Nigeria",
                     .zone = "Africa/Lagos",
                     .shortName = "LOS",
                     .aliases = {}};
    const struct {
        const char* what;
        std::function<void(Store&)> edit;
        std::function<void(Config&)> effect;
    } cases[] = {
        {"add", [&](Store& s) { s.add(lagos); },
         [](Config& c) {
             c.places.push_back({.label = "Lagos", .shortName = "LOS", .zone = "Africa/Lagos"});
         }},
        {"remove a favourite", [](Store& s) { s.remove(2); },
         [](Config& c) {
             c.places.pop_back();
             c.favourites = {"London"};
         }},
        {"move", [](Store& s) { s.move(1, 1); },
         [](Config& c) { std::swap(c.places[1], c.places[2]); }},
        {"rename", [](Store& s) { s.rename(2, "Straits"); },
         [](Config& c) {
             c.places[2].label = "Straits";
             c.favourites = {"London", "Straits"};
         }},
        {"set home", [](Store& s) { s.setHome(2); },
         [](Config& c) {
             std::rotate(c.places.begin(), c.places.begin() + 2, c.places.end());
             c.places[0].home = true;
             c.places[1].home.reset();
             c.favourites = {"Singapore", "London"};
         }},
        {"toggle favourite", [](Store& s) { s.toggleFavourite(1); },
         [](Config& c) {
             c.favourites = {"London", "New York"};
         }},
        {"nudge work", [](Store& s) { s.nudgeWork(1, true, 0.5); },
         [](Config& c) {
             c.places[1].work = {{8.5, 18}};
         }},
        {"toggle workday", [](Store& s) { s.toggleWorkday(1, 7); },
         [](Config& c) {
             c.places[1].workdays = {{2, 3, 4, 5, 6, 7}};
         }},
        {"set holidays", [](Store& s) { s.setHolidays(1, false); },
         [](Config& c) { c.places[1].holidays = false; }},
        {"add a day off", [](Store& s) { s.addDayOff(1, "2026-01-16"); },
         [](Config& c) { c.places[1].daysOff = {{"2026-01-16"}}; }},
        {"remove a day off", [](Store& s) { s.removeDayOff(0, "2026-01-16"); }, [](Config&) {}},
        {"rolling", [](Store& s) { s.setRolling(true); }, [](Config& c) { c.rolling = true; }},
        {"appearance", [](Store& s) { s.setAppearance("light"); },
         [](Config& c) { c.appearance = "light"; }},
        {"welcomed", [](Store& s) { s.markWelcomed(); }, [](Config& c) { c.welcomed = true; }},
        {"plan from here", [](Store& s) { s.planFromHere(true); },
         [](Config& c) {
             c.travel = Travel{"Asia/Tokyo", true};
         }},
    };
    for (const auto& [what, edit, effect] : cases) {
        StoreWorld world("Asia/Tokyo", "2026-01-15 14:20", threePlaces());
        Store store(world.services());
        edit(store);
        Config expected = threePlaces();
        effect(expected);
        EXPECT_EQ(store.config(), expected) << what;
        EXPECT_EQ(world.saved(), expected) << what;
    }
}

TEST(StoreEdits, SaveNothingWhenRefused) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    const City city{
        .name = "Lagos", .country = "", .zone = "Africa/Lagos", .shortName = "L", .aliases = {}};
    for (int i = 0; i < 5; ++i)
        store.add({.name = "Lagos " + std::to_string(i),
                   .country = "",
                   .zone = city.zone,
                   .shortName = "L",
                   .aliases = {}});
    EXPECT_EQ(store.config().places.size(), 6U) << "six places are the most";
    EXPECT_FALSE(store.has(city));
    const Config before = store.config();
    std::filesystem::remove(world.paths.file);
    store.add(city);
    store.remove(0);
    store.move(1, -1);
    store.setHome(0);
    store.toggleFavourite(0);
    EXPECT_EQ(store.config(), before);
    EXPECT_FALSE(std::filesystem::exists(world.paths.file));
    store.nudgeWork(1, true, 10);
    EXPECT_EQ(store.config(), before);
    EXPECT_TRUE(std::filesystem::exists(world.paths.file)) << "a nudge without effect is saved";
}

TEST(StoreEdits, LetDemonstrationsShowAnything) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    Config shown = threePlaces();
    std::swap(shown.places[0], shown.places[1]);
    shown.favourites.clear();
    store.showWithoutSaving(shown);
    EXPECT_EQ(store.config(), shown.tidied(world.zone.current()));
    EXPECT_EQ(store.rows().front().label, "London");
    EXPECT_EQ(world.saved(), threePlaces());
}

TEST(StoreEdits, ReloadTheFileAndTheClock) {
    StoreWorld world("Asia/Tokyo", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    store.planFromHere(true);
    EXPECT_EQ(store.homeRow().label, "Tokyo");

    Config elsewhere = store.config();
    elsewhere.places.push_back({.label = "Tokyo", .shortName = "TYO", .zone = "Asia/Tokyo"});
    world.file.save(elsewhere);
    world.clock.time += seconds(7);
    store.reload();
    EXPECT_EQ(store.config(), elsewhere) << "the answer holds while the computer stays";
    EXPECT_EQ(store.now(), world.clock.time);

    world.zone.setting = zoneNamed("Europe/London");
    world.zoneChanges.announce();
    EXPECT_EQ(store.homeRow().label, "London");
    elsewhere.travel.reset();
    EXPECT_EQ(store.config(), elsewhere) << "at home the answer is forgotten";
    EXPECT_EQ(world.saved(), elsewhere);
}

TEST(StoreEdits, FollowTheComputerToAnotherZone) {
    Config config = threePlaces();
    config.places[0].zone = "";
    config.places[1].zone = "Europe/Atlantis";
    StoreWorld world("Europe/London", "2026-07-15 14:20", config);
    Store store(world.services());
    EXPECT_EQ(store.places()[1].tz.identifier(), "Europe/London");
    world.zone.setting = zoneNamed("Asia/Dubai");
    EXPECT_EQ(store.places()[1].tz.identifier(), "Europe/London") << "until it is told";
    world.zoneChanges.announce();
    EXPECT_EQ(store.places()[0].tz.identifier(), "Europe/London");
    EXPECT_EQ(store.places()[1].tz.identifier(), "Asia/Dubai");
    EXPECT_TRUE(store.travelUndecided());
    store.propose(3);
    store.planFromHere(false);
    EXPECT_FALSE(store.travelUndecided());
    EXPECT_FALSE(store.planningHere());
    EXPECT_EQ(store.proposal(), std::nullopt);
}

TEST(StoreEdits, AskForTheHolidaysOfAllPlannedCountries) {
    Config config = threePlaces();
    config.places[1].holidays = false;
    StoreWorld world("Asia/Tokyo", "2026-04-03 02:00", config);
    for (const char* country : {"GB", "US", "SG", "JP", "NG"})
        world.cacheHolidays(country, R"("2026-04-03":{"name":"A holiday"})");
    Store store(world.services());
    const auto loaded = [&] {
        std::string countries;
        for (const char* country : {"GB", "JP", "NG", "SG", "US"})
            if (world.holidays.days(country)) countries += country;
        return countries;
    };
    EXPECT_EQ(loaded(), "GBSG") << "not of a place with its holidays off";
    store.toggleHidden(store.rows()[0]);
    store.format = HourFormat::utc;
    store.add(
        {.name = "Lagos", .country = "", .zone = "Africa/Lagos", .shortName = "L", .aliases = {}});
    EXPECT_EQ(loaded(), "GBSG") << "adding a place does not ask";
    store.planFromHere(true);
    EXPECT_EQ(loaded(), "GBJPNGSG");
    store.setHolidays(1, true);
    EXPECT_EQ(loaded(), "GBJPNGSGUS");
    EXPECT_EQ(store.phase(store.rows()[3], utc("2026-04-03 15:00"), true), Phase::off);
}

TEST(StoreTyping, PreviewsAndKeepsOrForgets) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    store.changeDay(2);
    store.hoverCol = 4;
    store.startTyping("9");
    EXPECT_EQ(store.timeQuery(), "9");
    EXPECT_TRUE(store.timeQueryValid());
    EXPECT_EQ(store.proposal(), utc("2026-01-17 09:00"));
    EXPECT_EQ(store.hoverCol(), std::nullopt);

    const auto type = [&](const char* text) {
        store.timeQuery = text;
        store.preview();
    };
    type("9:07 nyc tomorrow");
    EXPECT_EQ(store.proposal(), utc("2026-01-16 14:07")) << "as it is, not snapped";
    EXPECT_EQ(store.dayOffset(), 1);
    type("9:07 nowhere at all");
    EXPECT_FALSE(store.timeQueryValid());
    EXPECT_EQ(store.proposal(), utc("2026-01-16 14:07")) << "the last that was understood stays";
    type("");
    EXPECT_FALSE(store.timeQueryValid());
    EXPECT_EQ(store.proposal(), std::nullopt);
    EXPECT_EQ(store.dayOffset(), 2);
    EXPECT_EQ(store.timeQuery(), "") << "typing goes on";

    type("tomorrow 10am");
    store.finishTyping(false);
    EXPECT_EQ(store.timeQuery(), std::nullopt);
    EXPECT_EQ(store.proposal(), std::nullopt);
    EXPECT_EQ(store.dayOffset(), 2);
    EXPECT_FALSE(store.timeQueryValid());

    store.startTyping();
    EXPECT_EQ(store.timeQuery(), "");
    EXPECT_EQ(store.dayOffset(), 2);
    type("tomorrow 10am");
    store.finishTyping(true);
    EXPECT_EQ(store.timeQuery(), std::nullopt);
    EXPECT_EQ(store.proposal(), utc("2026-01-16 10:00"));
    EXPECT_EQ(store.dayOffset(), 1);

    store.startTyping("8am");
    store.preview();
    store.finishTyping(false);
    EXPECT_EQ(store.proposal(), utc("2026-01-16 10:00")) << "the proposal from before comes back";

    store.startTyping("8am");
    store.backToNow();
    EXPECT_EQ(store.timeQuery(), std::nullopt);
    store.preview();
    EXPECT_EQ(store.proposal(), std::nullopt) << "nothing is typed any more";
}

TEST(StoreTyping, ReadsPlacesAsTheyArePlannedWith) {
    Config config = threePlaces();
    config.places[2].shortName = "hq";
    StoreWorld world("Asia/Tokyo", "2026-01-15 01:20", config);
    Store store(world.services());
    store.planFromHere(true);
    store.toggleHidden(store.places()[2]);
    const struct {
        const char* text;
        std::optional<Instant> proposal;
    } cases[] = {
        {"9", utc("2026-01-15 00:00")},             // home is where plans are made from
        {"9 hq", utc("2026-01-15 01:00")},          // hidden places are still known by name
        {"16:00 london", utc("2026-01-14 16:00")},  // within the day shown
        {"9 atlantis", std::nullopt},
    };
    for (const auto& [text, proposal] : cases) {
        store.backToNow();
        store.startTyping(text);
        EXPECT_EQ(store.proposal(), proposal) << text;
    }
    store.propose(5);
    store.setRolling(true);
    EXPECT_EQ(store.proposal(), std::nullopt) << "back to now";
    store.startTyping("9");
    EXPECT_EQ(store.proposal(), utc("2026-01-16 00:00")) << "in the rolling strip the next nine";
    EXPECT_EQ(store.dayOffset(), 1);
}

}  // namespace
}  // namespace noonward
