#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "app/Snapshot.h"
#include "fakes/StoreWorld.h"
#include "kit/Animation.h"

// What a demonstration makes of the store; the pictures of it have tests of their own.

namespace noonward::test {
namespace {

Config withSanFrancisco() {
    Config config = threePlaces();
    config.places.push_back({.label = "San Francisco", .zone = "America/Los_Angeles"});
    config.places.push_back({.label = "san francisco", .zone = "America/Tijuana"});
    config.travel = Travel{"Asia/Tokyo", true};
    return config;
}

// In Paris, at half past nine there.
struct Shown {
    explicit Shown(const Demonstration& demonstration)
        : world("Europe/Paris", "2026-03-18 08:30", withSanFrancisco()), store(world.services()) {
        kit::Animations animations;
        world.cacheHolidays("FR", R"("2026-03-18":{"name":"Fête"})");
        takeSnapshots(demonstration, store, ui, world.zone,
                      {.animations = animations, .holidays = world.holidays});
    }

    std::string proposed() const {
        if (!store.proposal()) return "nothing";
        const auto hours = (*store.proposal() - store.dayStart()) / std::chrono::minutes(1);
        return std::to_string(hours) + " for " + std::to_string(store.duration());
    }

    StoreWorld world;
    Store store;
    NotchUI ui;
};

TEST(DemonstrationState, PlansAMeeting) {
    const std::pair<Demonstration, std::string> rows[] = {
        {{}, "nothing"},
        {{.column = 7}, "420 for 60"},
        {{.column = 7, .minutes = 30}, "420 for 30"},
        {{.minutes = 45}, "nothing"},
        {{.time = "10:30 london"}, "630 for 60"},
        {{.column = 7, .time = "10:30 london"}, "630 for 60"},
        {{.column = 7, .time = "no time at all"}, "420 for 60"},
    };
    for (const auto& [demonstration, expected] : rows) {
        EXPECT_EQ(Shown(demonstration).proposed(), expected)
            << demonstration.column.value_or(-1) << ' ' << demonstration.time.value_or("");
    }
}

TEST(DemonstrationState, ChangesWhatIsShownInMemoryOnly) {
    using TravelState = Demonstration::TravelState;
    const Travel tokyo{"Asia/Tokyo", true};
    struct Case {
        Demonstration demonstration;
        std::size_t places;
        std::optional<Travel> travel;
        bool rolling;
    };
    const Case cases[] = {
        {{}, 5, tokyo, false},
        {{.five = true}, 4, tokyo, false},  // by its exact label
        {{.travel = TravelState::ask}, 5, std::nullopt, false},
        {{.travel = TravelState::here}, 5, Travel{"Europe/Paris", true}, false},
        {{.travel = TravelState::home}, 5, Travel{"Europe/Paris", false}, false},
        {{.five = true, .roll = true}, 4, tokyo, true},
    };
    for (const Case& row : cases) {
        Shown shown(row.demonstration);
        const Config& config = shown.store.config();
        EXPECT_EQ(config.places.size(), row.places);
        EXPECT_EQ(config.travel, row.travel);
        EXPECT_EQ(config.rolling, row.rolling);
        // The row for where the computer is has its holidays.
        EXPECT_EQ(shown.world.holidays.days("FR") != nullptr,
                  row.demonstration.travel == TravelState::here);
        EXPECT_EQ(shown.world.saved().places.size(), 5U);
        EXPECT_EQ(shown.world.saved().travel, tokyo);
    }
}

TEST(DemonstrationState, OpensEverythingAndHidesWhatIsAsked) {
    const Shown plain({});
    EXPECT_TRUE(plain.ui.expanded() && plain.ui.showTimes() && plain.ui.panelShown());
    EXPECT_EQ(plain.ui.updateReady(), std::nullopt);
    EXPECT_EQ(plain.store.format(), HourFormat::h24);

    const Shown shown({.update = "1.2", .hide = {"LonDon"}, .format = HourFormat::utc});
    EXPECT_EQ(shown.store.hidden(), std::set<std::string>{"london"});
    EXPECT_EQ(shown.store.format(), HourFormat::utc);
    EXPECT_EQ(shown.ui.updateReady(), "1.2");
}

}  // namespace
}  // namespace noonward::test
