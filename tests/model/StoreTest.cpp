#include "model/Store.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes/StoreWorld.h"

namespace noonward {
namespace {

using test::StoreWorld;
using test::threePlaces;
using test::utc;
using test::zoneNamed;

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

Config rollingPlaces() {
    Config config = threePlaces();
    config.rolling = true;
    return config;
}

std::vector<std::string> labels(const std::vector<Row>& rows) {
    std::vector<std::string> found;
    found.reserve(rows.size());
    for (const Row& row : rows)
        found.push_back(row.label);
    return found;
}
using Labels = std::vector<std::string>;

struct Announced {
    explicit Announced(Store& store)
        : subscription(store.changes().subscribe([this] { ++times; })) {}
    /// Whether anything was announced since the last question.
    bool since() { return std::exchange(times, 0) > 0; }

    int times = 0;
    Subscription subscription;
};

TEST(Store, StartsFromTheFileAndTheClock) {
    const struct {
        const char* stored;
        HourFormat format;
    } cases[] = {
        {"24h", HourFormat::h24}, {"12h", HourFormat::h12}, {"UTC", HourFormat::utc},
        {"12H", HourFormat::h12}, {"", HourFormat::h24},    {"sundial", HourFormat::h24},
    };
    for (const auto& [stored, format] : cases) {
        Config config = threePlaces();
        config.hourFormat = stored;
        StoreWorld world("Europe/London", "2026-01-15 14:20", config);
        const Store store(world.services());
        EXPECT_EQ(store.format(), format) << stored;
        EXPECT_EQ(store.config(), config) << "and what is stored stays as it is";
        EXPECT_EQ(store.now(), utc("2026-01-15 14:20"));
        EXPECT_EQ(store.dayOffset(), 0);
        EXPECT_EQ(store.proposal(), std::nullopt);
        EXPECT_EQ(store.focus(), store.now());
    }
}

TEST(Store, FollowsTheClockInStepsOfFifteenSeconds) {
    StoreWorld world("Europe/London", "2026-01-15 14:59", rollingPlaces());
    Store store(world.services());
    Announced announced(store);
    EXPECT_EQ(world.timer.interval, std::chrono::seconds(15));

    world.clock.time += minutes(2);
    EXPECT_EQ(store.now(), utc("2026-01-15 14:59")) << "until the timer ticks time stands still";
    EXPECT_EQ(store.dayStart(), utc("2026-01-15 02:00"));
    world.timer.tick();
    EXPECT_TRUE(announced.since());
    EXPECT_EQ(store.now(), utc("2026-01-15 15:01"));
    EXPECT_EQ(store.dayStart(), utc("2026-01-15 03:00"));
    world.timer.tick();
    EXPECT_FALSE(announced.since()) << "a clock that stands still is no change";
}

TEST(Store, ShowsTheDayWhereverTheClockHasGone) {
    StoreWorld world("Europe/London", "2026-01-15 23:50", threePlaces());
    Store store(world.services());
    const struct {
        const char* now;
        const char* dayStart;
        const char* what;
    } cases[] = {
        {"2026-01-16 07:10", "2026-01-16 00:00", "asleep over midnight"},
        {"2026-03-29 09:00", "2026-03-29 00:00", "asleep over a clock change"},
        {"2026-07-01 23:30", "2026-07-01 23:00", "asleep for months, to just after midnight"},
        {"2061-06-15 12:00", "2061-06-14 23:00", "years ahead, where only rules are known"},
        {"1970-01-01 00:00", "1969-12-31 23:00", "a computer that has lost its clock"},
        {"1847-11-30 12:00", "1847-11-30 00:01:15", "before there were zones"},
        {"2026-01-15 23:51", "2026-01-15 00:00", "and set right again"},
    };
    for (const auto& [now, dayStart, what] : cases) {
        world.clock.time = utc(now);
        world.timer.tick();
        EXPECT_EQ(store.now(), utc(now)) << what;
        EXPECT_EQ(store.dayStart(), utc(dayStart)) << what;
        EXPECT_EQ(store.dayOffset(), 0) << what;
        EXPECT_EQ(store.rows().size(), 3U) << what;
    }
}

TEST(Store, AnnouncesWhatChanges) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    Announced announced(store);
    const struct {
        const char* what;
        std::function<void()> action;
        bool announces;
    } steps[] = {
        {"hovering", [&] { store.hoverCol = 3; }, true},
        {"hovering on", [&] { store.hoverCol = 3; }, false},
        {"proposing", [&] { store.propose(5); }, true},
        {"changing the day", [&] { store.changeDay(1); }, true},
        {"changing it by nothing", [&] { store.changeDay(0); }, false},
        {"hiding", [&] { store.toggleHidden(store.rows()[1]); }, true},
        {"going back to now", [&] { store.backToNow(); }, true},
        {"and again", [&] { store.backToNow(); }, false},
        {"the format", [&] { store.format = HourFormat::utc; }, true},
        {"a message", [&] { store.flash = "Copied"; }, true},
        {"a length", [&] { store.setDuration(30); }, true},
        {"the same length", [&] { store.setDuration(30); }, false},
        {"holidays that arrive", [&] { world.holidays.changes().announce(); }, true},
    };
    for (const auto& [what, action, announces] : steps) {
        action();
        EXPECT_EQ(announced.since(), announces) << what;
    }
}

TEST(Store, IsUpToDateForWhoIsToldOfAChange) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    Labels seen;
    const Subscription watch =
        store.changes().subscribe([&] { seen = labels(store.visiblePlaces()); });
    store.change([](Config& config) { config.places.pop_back(); });
    EXPECT_EQ(seen, (Labels{"London", "New York"}));
    EXPECT_EQ(world.saved().places.size(), 2U);
    store.toggleHidden(store.homeRow());
    EXPECT_EQ(seen, (Labels{"New York"}));
    store.change([](Config& config) { config.places.clear(); });
    EXPECT_EQ(store.config(), Config::defaults(zoneNamed("Europe/London")))
        << "a configuration is tidied before it is shown";
}

TEST(Store, ShowsTheRowsThatItsStateAsksFor) {
    Config config = threePlaces();
    config.travel = Travel{"Asia/Tokyo", true};
    StoreWorld world("Europe/London", "2026-01-15 14:20", config);
    Store store(world.services());
    EXPECT_EQ(labels(store.rows()), (Labels{"London", "New York", "Singapore"}));
    EXPECT_FALSE(store.away());

    store.format = HourFormat::utc;
    EXPECT_EQ(labels(store.rows()), (Labels{"London", "UTC", "New York", "Singapore"}));
    EXPECT_EQ(labels(store.visiblePlaces()), (Labels{"London", "New York", "Singapore"}));

    world.zone.moveTo(zoneNamed("Asia/Tokyo"));
    EXPECT_TRUE(store.planningHere());
    EXPECT_EQ(labels(store.rows()), (Labels{"Tokyo", "UTC", "London", "New York", "Singapore"}));
    EXPECT_EQ(store.homeRow().tz.identifier(), "Asia/Tokyo");
    EXPECT_EQ(store.homeZone().identifier(), "Europe/London");
    EXPECT_EQ(store.dayStart(), utc("2026-01-14 15:00")) << "days begin where plans are made from";
    EXPECT_EQ(labels(store.notchRows()), (Labels{"London", "Singapore"}));
    EXPECT_EQ(labels(store.places()), (Labels{"London", "New York", "Singapore"}));
    EXPECT_EQ(store.diff(store.places()[0], store.now()), "−9h");

    world.zone.moveTo(zoneNamed("Asia/Seoul"));
    EXPECT_TRUE(store.travelUndecided());
    EXPECT_EQ(store.homeRow().label, "London");
    EXPECT_EQ(store.hereName(), "Seoul");
}

TEST(Store, TellsWhoIsAwayByTheRealTime) {
    // Abidjan has London's time in winter. The clock goes on while `now` waits for its tick.
    StoreWorld world("Africa/Abidjan", "2026-03-29 00:59:55", threePlaces());
    const Store store(world.services());
    EXPECT_TRUE(store.macElsewhere());
    EXPECT_FALSE(store.away());
    world.clock.time = utc("2026-03-29 01:00");
    EXPECT_TRUE(store.away());
    EXPECT_EQ(store.now(), utc("2026-03-29 00:59:55"));
}

TEST(Store, HidesByLowerCasedLabel) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    store.toggleHidden(store.rows()[1]);
    EXPECT_EQ(store.hidden(), (std::set<std::string>{"new york"}));
    EXPECT_TRUE(store.isHidden(store.rows()[1]));
    EXPECT_EQ(labels(store.visiblePlaces()), (Labels{"London", "Singapore"}));
    EXPECT_EQ(store.summary(store.now()), "London 14:20  ·  Singapore 22:20");

    store.change([](Config& config) { config.places[2].label = "NEW YORK"; });
    EXPECT_EQ(labels(store.visiblePlaces()), (Labels{"London"})) << "whoever bears the label hides";
    store.toggleHidden(store.rows()[2]);
    EXPECT_TRUE(store.hidden().empty());
}

TEST(Store, MovesTheShownDayAndTheProposalWithIt) {
    StoreWorld world("Europe/London", "2026-10-24 09:42", threePlaces());
    Store store(world.services());
    store.propose(10);
    store.hoverCol = 7;
    store.changeDay(1);
    EXPECT_EQ(store.dayStart(), utc("2026-10-24 23:00"));
    EXPECT_EQ(store.proposal(), utc("2026-10-25 09:00"));
    EXPECT_EQ(store.hoverCol(), std::nullopt);
    store.changeDay(1);
    EXPECT_EQ(store.proposal(), utc("2026-10-26 10:00")) << "the long day's tenth column is past";
    store.changeDay(-2);
    EXPECT_EQ(store.proposal(), utc("2026-10-24 09:00"));

    store.changeDay(most);
    store.changeDay(most);
    EXPECT_EQ(store.dayOffset(), most);
    EXPECT_EQ(store.dayStart(), utc("2026-10-23 23:00")) << "beyond the calendar today is shown";
    store.changeDay(-store.dayOffset());
    EXPECT_EQ(store.proposal(), utc("2026-10-24 09:00"));
    store.changeDay(least);
    store.changeDay(least);
    EXPECT_EQ(store.dayOffset(), least);
    store.timeQuery = "9am";
    store.hoverCol = 3;
    store.backToNow();
    EXPECT_EQ(store.hoverCol(), std::nullopt);
    EXPECT_EQ(store.dayOffset(), 0);
    EXPECT_EQ(store.proposal(), std::nullopt);
    EXPECT_EQ(store.timeQuery(), std::nullopt);
}

TEST(Store, ShowsTheDayOfAnInstant) {
    StoreWorld world("Europe/London", "2026-01-15 14:20", threePlaces());
    Store store(world.services());
    store.hoverCol = 3;
    store.show(utc("2026-01-18 09:07"));
    EXPECT_EQ(store.dayOffset(), 3);
    EXPECT_EQ(store.proposal(), utc("2026-01-18 09:07")) << "as it is, not snapped";
    EXPECT_EQ(store.hoverCol(), std::nullopt);
    EXPECT_EQ(store.selectedCol(), 9);

    store.change([](Config& config) { config.rolling = true; });
    store.show(utc("2026-01-16 08:00"));
    EXPECT_EQ(store.dayOffset(), 1);
    EXPECT_EQ(store.selectedCol(), 6);
    for (const Instant far : {Instant::min(), Instant::max()}) {
        store.show(far);
        EXPECT_NE(store.dayOffset(), 0);
        EXPECT_FALSE(store.emailText(store.focus()).empty());
    }
}

TEST(Store, FindsTheFairestHour) {
    Config config = threePlaces();
    config.places.pop_back();
    StoreWorld world("Europe/London", "2026-01-15 14:20", config);
    Store store(world.services());
    EXPECT_EQ(store.fairestCol(), 13);
    EXPECT_FALSE(store.proposalIsFairest());
    store.jumpToFairest();
    EXPECT_EQ(store.proposal(), utc("2026-01-15 13:00"));
    EXPECT_TRUE(store.proposalIsFairest());
    store.step(5);
    EXPECT_FALSE(store.proposalIsFairest());
    store.changeDay(2);  // a Saturday everywhere
    EXPECT_EQ(store.fairestCol(), 13);

    store.toggleHidden(store.rows()[1]);
    EXPECT_EQ(store.fairestCol(), 8);
    store.toggleHidden(store.rows()[0]);
    EXPECT_EQ(store.fairestCol(), 0);

    store.backToNow();
    store.change([](Config& edited) { edited.rolling = true; });
    EXPECT_EQ(store.fairestCol(), 13) << "the next full hour, with everyone hidden";
    store.hidden = {"new york"};
    store.jumpToFairest();
    EXPECT_EQ(store.proposal(), utc("2026-01-15 15:00"));
    world.clock.time = utc("2026-01-15 18:20");
    world.timer.tick();
    EXPECT_EQ(store.fairestCol(), 26);
    store.jumpToFairest();
    EXPECT_EQ(store.dayOffset(), 1);
    EXPECT_EQ(store.proposal(), utc("2026-01-16 08:00"));
    EXPECT_EQ(store.selectedCol(), 2);
}

TEST(Store, CountsPublicHolidays) {
    Config config = threePlaces();
    config.places.pop_back();
    config.places[0].work = {{8, 9}};
    StoreWorld world("Europe/London", "2026-04-02 20:00", config);
    world.cacheHolidays("GB", R"("2026-04-03":{"name":"Good Friday"})");
    Store store(world.services());
    store.changeDay(1);
    const Row london = store.homeRow();
    EXPECT_EQ(store.dayOff(london, store.instant(8)), DayOff::holiday("Good Friday"));
    EXPECT_EQ(store.phase(london, store.instant(8), true), Phase::off);
    EXPECT_EQ(store.phase(store.rows()[1], store.instant(14), true), Phase::work);
    EXPECT_EQ(store.fairestCol(), 9) << "New York gives way as London works on a holiday";
    EXPECT_EQ(store.offNotes(store.instant(9)),
              (std::vector<std::string>{"Good Friday in London"}));

    store.setHolidays(0, false);
    EXPECT_EQ(store.phase(store.homeRow(), store.instant(8), true), Phase::work);
    EXPECT_EQ(store.fairestCol(), 11);
    EXPECT_TRUE(store.offNotes(store.instant(9)).empty());
}

TEST(Store, KeepsAProposalInTheStrip) {
    StoreWorld world("Europe/London", "2026-01-15 09:42", threePlaces());
    Store store(world.services());
    store.hoverCol = 20;
    EXPECT_EQ(store.selectedCol(), 20);
    EXPECT_EQ(store.focus(), utc("2026-01-15 20:00"));
    store.step(5);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 09:05")) << "from the start of the current hour";
    EXPECT_EQ(store.hoverCol(), std::nullopt);
    EXPECT_EQ(store.focus(), utc("2026-01-15 09:05"));
    store.hoverCol = 3;
    EXPECT_EQ(store.selectedCol(), 3) << "the pointer goes before the proposal";
    EXPECT_EQ(store.focus(), utc("2026-01-15 09:05")) << "but what is described is proposed";
    store.propose(9);
    EXPECT_EQ(store.hoverCol(), std::nullopt);
    store.step(-55);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 08:05"));
    store.step(most);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 23:00"));
    store.step(least);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 00:00"));
    store.propose(99);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 23:00"));
    store.propose(least);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 00:00"));

    store.setDuration(15);
    store.place(utc("2026-01-15 23:32"));
    EXPECT_EQ(store.proposal(), utc("2026-01-15 23:30"));
    EXPECT_EQ(store.range(*store.proposal(), store.homeRow()), "23:30–23:45");
    store.setDuration(60);
    EXPECT_EQ(store.proposal(), utc("2026-01-15 23:00")) << "a longer meeting is pulled back";

    store.change([](Config& config) { config.rolling = true; });
    world.clock.time = utc("2026-01-15 14:30");
    world.timer.tick();
    store.propose(0);
    EXPECT_EQ(store.proposal(), store.dayStart() + hours(1));
    store.place(store.dayStart());
    EXPECT_EQ(store.proposal(), store.dayStart() + minutes(30));
}

TEST(Store, StoresTheLengthOfMeetings) {
    Config config = threePlaces();
    config.meetingMinutes = 20;
    StoreWorld world("Europe/London", "2026-01-15 09:42", config);
    Store store(world.services());
    EXPECT_EQ(store.duration(), 60);
    EXPECT_EQ(world.saved().meetingMinutes, 20) << "an odd length stays stored";
    for (const int length : {15, 30, 45, 60, 15}) {
        store.cycleDuration();
        EXPECT_EQ(store.duration(), length);
        EXPECT_EQ(world.saved().meetingMinutes, length);
    }
    EXPECT_EQ(store.proposal(), std::nullopt);
}

TEST(Store, OutlivesItsTicksAndIsOutlivedByItsServices) {
    StoreWorld world("Europe/London", "2026-01-15 09:42", threePlaces());
    {
        const Store store(world.services());
        EXPECT_EQ(world.timer.running(), 1);
    }
    EXPECT_EQ(world.timer.running(), 0);
    world.holidays.changes().announce();
}

}  // namespace
}  // namespace noonward
