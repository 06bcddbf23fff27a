#include <gtest/gtest.h>

#include "kit/Scroll.h"
#include "kit/Scrolling.h"
#include "views/RibbonScene.h"
#include "views/SettingsScene.h"
#include "views/settings/WeekEditor.h"
#include "views/welcome/WelcomeView.h"

namespace noonward::test {
namespace {

using Labels = std::vector<std::string>;

TEST(Settings, SayWhereEachPlaceStands) {
    struct Case {
        const char* what;
        std::function<void(Config&)> config;
        SettingsView::Options options;
        Labels said;
        Labels unsaid;
    };
    const auto nothing = [](Config&) {};
    const auto away = [](Config& config) {
        config.homeZones = {"Asia/Tokyo"};
        config.places[0].zone.clear();
    };
    const Case cases[] = {
        {"three places",
         nothing,
         {},
         {"Your places  ·  3 of 6", "always first",
          "America/New York · EDT · 05:40 · works 8–18 Mon–Fri", "A city — Tokyo"},
         {"Not in the list", "working week", "Follows this Mac"}},
        {"six places",
         [](Config& config) { config.places = places(6).places; },
         {},
         {"6 of 6", "Six places is the most"},
         {"A city — Tokyo"}},
        {"a place that follows the computer",
         [](Config& config) { config.places[0].zone.clear(); },
         {},
         {"Europe/London · Follows this Mac · GMT"},
         {"Home time while you travel"}},
        {"away from home",
         away,
         {},
         {"Asia/Tokyo · Home time while you travel · "},
         {"Follows this Mac"}},
        {"a short query", nothing, {.query = " ny "}, {}, {"Not in the list"}},
        {"what is there already",
         nothing,
         {.query = "singapore"},
         {"Not in the list — look up “singapore” with Apple Maps"},
         {"GMT+8 · 17:40 · +8h"}},
        {"a city",
         nothing,
         {.query = "tokyo"},
         {"text \"Tokyo\"", "JST · 18:40 · +9h", "look up “tokyo” with Apple Maps"},
         {}},
        {"an open week",
         nothing,
         {.editing = 1},
         {"\"New York\"", " — working week", "08:00", "18:00", "Fetching United States's holidays…",
          "Office closures or leave that count as days off for New York.", "18/03/2026",
          "Back to 8–18, Monday to Friday, with holidays"},
         {}},
        {"its exceptions",
         [](Config& config) {
             config.places[1] = {.label = "Dubai",
                                 .shortName = "DXB",
                                 .zone = "Asia/Riyadh",
                                 .work = {{8.5, 17.25}},
                                 .holidays = false,
                                 .daysOff = {{"2025-02-03", "2026-02-31", "soon"}}};
         },
         {.editing = 1},
         {"08:30", "17:15", "Off — Saudi Arabia's holidays are left out.", "Mon 3 Feb",
          "2026-02-31", "Back to 8–18, the usual week, with holidays"},
         {}},
        {"no country",
         [](Config& config) { config.places[1].zone = "Etc/UTC"; },
         {.editing = 1},
         {"No country for this time zone."},
         {}},
        {"nobody's week", nothing, {.editing = 7}, {}, {"working week"}},
    };
    for (const Case& each : cases) {
        Config config = threePlaces();
        each.config(config);
        const SettingsScene scene(config, each.options);
        for (const std::string& words : each.said)
            EXPECT_TRUE(scene.says(words)) << each.what << ": " << words;
        for (const std::string& words : each.unsaid)
            EXPECT_FALSE(scene.says(words)) << each.what << ": " << words;
    }
}

TEST(Settings, SayWhichHolidaysAreNext) {
    const SettingsScene scene(threePlaces(), {.editing = 1},
                              R"("2026-03-17":{"name":"Gone"},)"
                              R"("2026-04-03":{"name":"Good"},)"
                              R"("2026-05-25":{"name":"Memorial"})");
    EXPECT_TRUE(
        scene.says("United States, from Google's public calendar. Next: Fri 3 Apr Good · "
                   "Mon 25 May Memorial\""));
}

TEST(Settings, EveryControlIsOnDiskAtOnce) {
    struct Case {
        const char* button;
        std::size_t which;
        std::function<bool(const Config&)> done;
    };
    const auto placed = [](const Config& config, std::size_t index, const char* label) {
        return index < config.places.size() && config.places[index].label == label;
    };
    const auto newYork = [](const Config& config) { return config.places[1]; };
    const Case cases[] = {
        {"Make this a favourite, beside the notch", 0,
         [](const Config& c) {
             return c.favourites == Labels{"London", "New York"};
         }},
        {"Favourite — beside the notch. Click to unstar", 0,
         [](const Config& c) { return c.favourites == Labels{"London"}; }},
        {"Make this home", 1, [&](const Config& c) { return placed(c, 0, "Singapore"); }},
        {"Move up", 0, [&](const Config& c) { return placed(c, 1, "Singapore"); }},
        {"Move down", 0, [&](const Config& c) { return placed(c, 2, "New York"); }},
        {"Remove", 0, [&](const Config& c) { return placed(c, 1, "Singapore"); }},
        {"Light", 0, [](const Config& c) { return c.appearance == "light"; }},
        {"Keep now in the middle", 0, [](const Config& c) { return c.rolling; }},
        {"Start of work: half an hour earlier", 0,
         [&](const Config& c) {
             return newYork(c).work == std::vector<double>{7.5, 18};
         }},
        {"End of work: half an hour later", 0,
         [&](const Config& c) {
             return newYork(c).work == std::vector<double>{8, 18.5};
         }},
        {"Monday", 0,
         [&](const Config& c) {
             return newYork(c).workdays == std::vector<int>{3, 4, 5, 6};
         }},
        {"Sunday", 0,
         [&](const Config& c) {
             return newYork(c).workdays == std::vector<int>{1, 2, 3, 4, 5, 6};
         }},
        {"Public holidays", 0, [&](const Config& c) { return newYork(c).holidays == false; }},
        {"Thu 24 Dec", 0, [&](const Config& c) { return !newYork(c).daysOff; }},
        {"Add", 0,
         [&](const Config& c) {
             return newYork(c).daysOff == Labels{"2026-03-18", "2026-12-24"};
         }},
        {"Tokyo", 0, [&](const Config& c) { return placed(c, 3, "Tokyo"); }},
    };
    for (const Case& each : cases) {
        Config config = threePlaces();
        config.places[1].daysOff = {"2026-12-24"};
        SettingsScene scene(config, {.query = "tokyo", .editing = 1});
        EXPECT_FALSE(each.done(scene.world.saved())) << each.button;
        ASSERT_GT(scene.buttons(each.button).size(), each.which) << each.button;
        scene.press(each.button, each.which);
        EXPECT_TRUE(each.done(scene.world.saved())) << each.button;
    }
}

TEST(Settings, LeaveHomeWhereItIs) {
    const SettingsScene scene;
    EXPECT_TRUE(scene.says("Home is always a favourite"));
    EXPECT_TRUE(scene.buttons("Home is always a favourite").empty());
    EXPECT_EQ(scene.buttons("Remove").size(), 2U);
    EXPECT_EQ(scene.buttons("Move up").size(), 1U);
    EXPECT_EQ(scene.buttons("Move down").size(), 1U);
}

TEST(Settings, ResetsAWeek) {
    SettingsScene scene(threePlaces(), {.editing = 2});
    scene.press("Public holidays");
    scene.press("Tuesday");
    scene.press("End of work: half an hour later");
    EXPECT_NE(scene.world.saved().places[2], threePlaces().places[2]);
    scene.press("Back to 8–18, Monday to Friday, with holidays");
    EXPECT_EQ(scene.world.saved().places[2], threePlaces().places[2]);
}

TEST(Settings, StoreNamesTrimmedAsTheyAreTyped) {
    const std::string long10k(10'000, 'x');
    struct Case {
        std::string typed;
        std::string stored;
    };
    for (const Case& each :
         {Case{"  New York ", "New York"}, Case{"", ""}, Case{" \t", ""}, Case{"London", "London"},
          Case{long10k, long10k}, Case{"דובאי", "דובאי"}, Case{"e\u0301\u0301", "e\u0301\u0301"}}) {
        SettingsScene scene;
        const kit::Placed before = scene.placed();
        scene.type("Name", each.typed, 2);
        EXPECT_EQ(scene.labels(), (Labels{"London", "New York", each.stored}));
        // However it is called, nothing else moves.
        std::vector<QRectF> rects;
        for (const kit::Placed& root : {before, scene.placed()}) {
            kit::walk(root, [&](const kit::Placed& part) {
                if (part.node->interaction() && part.node->interaction()->press)
                    rects.push_back(part.rect);
            });
        }
        const auto half = rects.begin() + static_cast<std::ptrdiff_t>(rects.size() / 2);
        EXPECT_TRUE(std::equal(rects.begin(), half, half, rects.end())) << each.typed.substr(0, 20);
    }
}

TEST(Settings, TheOpenWeekFollowsItsPlaceAndClosesWithIt) {
    const SettingsScene scene;
    const char* tip = "Working hours, days and holidays";
    scene.press(tip, 1);
    EXPECT_EQ(scene.openWeek(), "New York");
    scene.press("Move down");
    EXPECT_EQ(scene.openWeek(), "New York");
    scene.press("Make this home", 1);
    scene.type("Name", "NYC", 0);
    EXPECT_EQ(scene.openWeek(), "NYC");
    scene.press(tip, 1);
    EXPECT_EQ(scene.openWeek(), "London") << "only one is open";
    scene.press("Remove", 0);
    EXPECT_EQ(scene.openWeek(), "");
    scene.press(tip, 1);
    scene.press(tip, 1);
    EXPECT_EQ(scene.openWeek(), "");
}

TEST(Settings, WhatMattersIsInSight) {
    struct Case {
        SettingsView::Options options;
        std::size_t places;
        const char* words;
    };
    for (const auto& [options, count, words] :
         {Case{{}, 6, "to make"},  // why there is no field to search in
          {{.editing = 5}, 6, "Back to 8–18"},
          {{.query = "united"}, 4, "Not in the list"}}) {
        const SettingsScene scene(places(count), options);
        std::set<kit::Id> shown;
        kit::showAppeared(scene.placed(), shown);
        const kit::Placed root = scene.placed();
        const kit::Placed* found = kit::find(root, [&](const kit::Placed& placed) {
            const std::string text = placed.node->description();
            return text.starts_with("text ") && text.find(words) != std::string::npos;
        });
        ASSERT_NE(found, nullptr) << words;
        EXPECT_GT(found->rect.top(), 91 + kit::scrollFade) << words;
        EXPECT_LT(found->rect.bottom(), 546) << words;
    }
}

TEST(Settings, EveryControlHasATooltip) {
    const auto check = [](const kit::Placed& root) {
        for (const kit::Element& element : kit::elements(root)) {
            const bool isControl = element.press && element.role == kit::Role::button;
            EXPECT_TRUE(!isControl || !element.help.empty() || element.name.ends_with(")"))
                << element.name;
        }
    };
    check(SettingsScene(places(5), {.query = "united", .editing = 4}).placed());
    RibbonScene ribbon({.here = "Asia/Tokyo", .options = {.solid = false}});
    check(ribbon.placed());
    ribbon.store->changeDay(1);
    ribbon.store->propose(9);
    ribbon.store->toggleHidden(ribbon.store->rows()[1]);
    check(ribbon.placed());
    check(kit::layOut(WelcomeView(*ribbon.store, ribbon.ui, [](bool) {}).body(Scheme::dark),
                      rootEnvironment()));
}

TEST(Settings, LookUpWhatIsNotInTheList) {
    const Placemark milwaukee{.locality = "Milwaukee",
                              .country = "United States",
                              .zone = "America/Chicago",
                              .region = "Wisconsin"};
    const char* offer = "Not in the list — look up “milwaukee” with Apple Maps";
    SettingsScene scene(threePlaces(), {.query = "milwaukee"});
    scene.press(offer);
    EXPECT_TRUE(scene.says("Looking up “milwaukee”…"));
    EXPECT_TRUE(scene.buttons(offer).empty());
    scene.geocoder.fail(0);
    EXPECT_FALSE(scene.says("Looking up"));
    scene.press(offer);
    scene.geocoder.answer(1, {milwaukee});
    EXPECT_EQ(scene.buttons("Milwaukee").at(0).help, "Milwaukee, Wisconsin, United States");
    scene.press("Milwaukee");
    EXPECT_EQ(scene.labels().back(), "Milwaukee");
    EXPECT_FALSE(scene.says("milwaukee")) << "the query is gone";
    EXPECT_EQ(scene.geocoder.asked(), (Labels{"milwaukee", "milwaukee"}));
}

TEST(Settings, DropAnswersThatComeTooLate) {
    const Placemark place{.locality = "Springfield", .zone = "America/Chicago"};
    auto scene =
        std::make_unique<SettingsScene>(threePlaces(), SettingsView::Options{.query = "tokyo"});
    scene->press("Not in the list — look up “tokyo” with Apple Maps");
    scene->press("Tokyo");
    scene->geocoder.answer(0, {place});
    EXPECT_FALSE(scene->says("Springfield")) << "a city has been added";

    // Nobody is there any more but the picture of what there was.
    FakeGeocoder geocoder;
    kit::Placed left;
    {
        const SettingsView view(scene->store, scene->ui,
                                {.animations = scene->animations,
                                 .holidays = scene->world.holidays,
                                 .geocoder = &geocoder},
                                {.query = "spr"});
        left = kit::layOut(view.body(Scheme::dark), rootEnvironment());
    }
    for (const kit::Element& element : kit::elements(left)) {
        if (element.name.starts_with("Not in the list")) element.press();
    }
    ASSERT_EQ(geocoder.asked(), Labels{"spr"});
    geocoder.answer(0, {place});
}

TEST(Settings, OfferOnlyStepsThatCanBeTaken) {
    struct Case {
        std::vector<double> work;
        std::size_t earlier;  // how many of the two can be pressed
        std::size_t later;
    };
    for (const Case& each : {Case{{8, 18}, 2, 2}, Case{{0, 24}, 1, 1}, Case{{9, 9.5}, 1, 1},
                             Case{{24, 0}, 1, 1}, Case{{22, 6}, 2, 2}}) {
        Config config = threePlaces();
        config.places[0].work = each.work;
        const SettingsScene scene(config, {.editing = 0});
        const auto offered = [&](const char* step) {
            return scene.buttons(std::string("Start of work: half an hour ") + step).size() +
                   scene.buttons(std::string("End of work: half an hour ") + step).size();
        };
        EXPECT_EQ(offered("earlier"), each.earlier) << each.work[0];
        EXPECT_EQ(offered("later"), each.later) << each.work[0];
    }
}

TEST(Settings, KeepWhateverIsInTheFileInsideTheColumn) {
    Config config = threePlaces();
    config.places[0].daysOff = {std::string(1000, 'W'), "2026-12-24", "2026-12-25"};
    const SettingsScene scene(config, {.editing = 0});
    for (const kit::Element& element : kit::elements(scene.placed())) {
        if (element.rect.left() < 28 + 560) {
            EXPECT_LE(element.rect.right(), 1168) << element.name.substr(0, 20);
            EXPECT_GE(element.rect.left(), 28) << element.name.substr(0, 20);
        }
    }
    EXPECT_EQ(scene.buttons("Thu 24 Dec").at(0).rect.left(), 28 + 12);
}

TEST(Settings, TellNamesakesApart) {
    SettingsScene scene(threePlaces(), {.query = "springfield"});
    scene.press("Not in the list — look up “springfield” with Apple Maps");
    std::vector<Placemark> found;
    for (const char* region : {"Missouri", "Illinois", "Massachusetts"})
        found.push_back({.locality = "Springfield",
                         .country = "United States",
                         .zone = "America/Chicago",
                         .region = region});
    scene.geocoder.answer(0, found);
    for (const Placemark& each : found)
        EXPECT_TRUE(scene.says("Springfield, " + *each.region)) << *each.region;
}

TEST(Settings, FillUpToSix) {
    SettingsScene scene(places(5), {.query = "tokyo"});
    scene.press("Tokyo");
    EXPECT_TRUE(scene.says("Your places  ·  6 of 6"));
    EXPECT_TRUE(scene.says("Six places is the most the ribbon shows comfortably."));
    EXPECT_FALSE(scene.says("A city — Tokyo"));
}

TEST(Settings, TheLoginSwitchShowsWhatTheDesktopMadeOfIt) {
    SettingsScene scene;
    EXPECT_FALSE(scene.isOn("Open at login"));
    scene.press("Open at login");
    EXPECT_TRUE(scene.isOn("Open at login"));
    scene.loginItem.refuses = true;
    scene.press("Open at login");
    EXPECT_TRUE(scene.isOn("Open at login"));
}

TEST(Settings, HaveWhatTheProgramOffers) {
    SettingsScene scene;
    int checks = 0;
    int quits = 0;
    scene.ui.onUpdates = [&] { ++checks; };
    scene.ui.onQuit = [&] { ++quits; };
    scene.ui.version = "1.2.3";
    EXPECT_TRUE(scene.says("Noonward 1.2.3"));
    scene.press("Check for updates");
    scene.ui.updateReady = "2.0";
    scene.press("Update to 2.0");
    scene.press("Quit");
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(quits, 1);
    scene.ui.settingsShown = true;
    scene.press("Done");
    EXPECT_FALSE(scene.ui.settingsShown());
}

}  // namespace
}  // namespace noonward::test
