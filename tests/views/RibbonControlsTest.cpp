#include <gtest/gtest.h>

#include <tuple>

#include "kit/Description.h"
#include "kit/Node.h"
#include "views/Finding.h"
#include "views/RibbonScene.h"

namespace noonward::test {
namespace {

struct Live {
    explicit Live(Situation situation = {}) : scene(live(std::move(situation))) {}

    static Situation live(Situation situation) {
        situation.options = {.solid = false};
        return situation;
    }
    testing::AssertionResult press(const std::string& tooltipOrWords) {
        const kit::Placed root = scene.placed();
        const kit::Placed* button = pressable(withTooltip(root, tooltipOrWords));
        if (!button) button = buttonSaying(root, tooltipOrWords);
        if (!button) return testing::AssertionFailure() << kit::dump(root);
        button->node->interaction()->press();
        return testing::AssertionSuccess();
    }
    Store& store() { return *scene.store; }
    RibbonScene scene;
};

TEST(RibbonControls, DoWhatTheySay) {
    Live live;
    Store& store = live.store();
    store.propose(10);
    const Instant ten = *store.proposal();

    EXPECT_TRUE(live.press("Earlier by 5 minutes (←)"));
    EXPECT_EQ(store.proposal(), ten - minutes(5));
    EXPECT_TRUE(live.press("Later by 5 minutes (→)"));
    EXPECT_EQ(store.proposal(), ten);
    for (const auto& [tooltip, length] : {std::pair{"15 minutes meeting (d)", 15},
                                          {"30 minutes meeting (d)", 30},
                                          {"45 minutes meeting (d)", 45},
                                          {"1 hour meeting (d)", 60}}) {
        EXPECT_TRUE(live.press(tooltip));
        EXPECT_EQ(store.duration(), length);
    }
    EXPECT_TRUE(live.press("Next day (])"));
    EXPECT_TRUE(live.press("Next day (])"));
    EXPECT_EQ(store.dayOffset(), 2);
    EXPECT_TRUE(live.press("Previous day ([)"));
    EXPECT_EQ(store.dayOffset(), 1);
    EXPECT_TRUE(live.press("Today"));
    EXPECT_EQ(store.dayOffset(), 0);
    EXPECT_TRUE(live.press("Clear the proposed time (n)"));
    EXPECT_EQ(store.proposal(), std::nullopt);
    EXPECT_TRUE(live.press("Add, remove or pin places; light or dark (s)"));
    EXPECT_TRUE(live.scene.ui.settingsShown());
}

TEST(RibbonControls, CopyAndUpdateCallTheShell) {
    int copied = 0;
    int updates = 0;
    Situation situation;
    Live live(situation);
    live.scene.ui.updateReady = "1.2";
    live.scene.ui.onUpdates = [&] { ++updates; };
    const RibbonPanel panel(live.store(), live.scene.ui, {.onCopyInvite = [&] { ++copied; }});
    const kit::Placed root = kit::layOut(panel.body(Scheme::dark), rootEnvironment());
    pressable(withTooltip(root,
                          "Copies each place's hour, start to end, ready to paste into an "
                          "email"))
        ->node->interaction()
        ->press();
    EXPECT_EQ(copied, 1);
    EXPECT_TRUE(live.press("Noonward 1.2 is ready (u)"));
    EXPECT_EQ(updates, 1);
}

TEST(RibbonControls, AnswerTheTravelQuestion) {
    Live live({.here = "Asia/Tokyo"});
    Store& store = live.store();
    EXPECT_TRUE(live.press("Plan from Tokyo"));
    EXPECT_TRUE(store.planningHere());
    EXPECT_TRUE(live.press("Plan from London"));
    EXPECT_FALSE(store.planningHere());
    EXPECT_TRUE(live.press("Plan from Tokyo"));
    EXPECT_TRUE(store.planningHere());

    Live undecided({.here = "Asia/Tokyo"});
    EXPECT_TRUE(undecided.press("Keep London"));
    EXPECT_FALSE(undecided.store().travelUndecided());
    EXPECT_FALSE(undecided.store().planningHere());

    undecided.store().flash = "Copied";
    EXPECT_FALSE(undecided.press("Plan from Tokyo")) << "a message replaces the banner";
}

TEST(RibbonControls, HideAndShowRows) {
    Live live;
    const auto hoverRow = [&](const char* label, bool inside) {
        const kit::Placed root = live.scene.placed();
        kit::walk(root, [&](const kit::Placed& placed) {
            const kit::Interaction* interaction = placed.node->interaction();
            if (!interaction || !interaction->hover || placed.rect.height() != 56) return;
            if (kit::dump(placed).find(label) == std::string::npos) return;
            interaction->hover(inside ? std::optional(kit::Hover{{5, 5}}) : std::nullopt);
        });
    };
    const std::string hide = "Hide New York for now — left out of the email and the fairest hour";
    const auto seen = [&](const std::string& tooltip) {
        const kit::Placed root = live.scene.placed();
        const kit::Placed* shown = kit::find(
            *withTooltip(root, tooltip),
            [](const kit::Placed& placed) { return placed.node->description() == "opacity"; });
        return shown->node->numbers() == std::vector<double>{1};
    };
    const auto focus = [&](const std::string& tooltip, bool has) {
        const kit::Placed root = live.scene.placed();
        pressable(withTooltip(root, tooltip))->node->interaction()->focused(has);
    };
    EXPECT_FALSE(seen(hide)) << "only the row under the pointer offers to hide";
    focus(hide, true);
    EXPECT_TRUE(seen(hide)) << "and the one that the Tab key has come to";
    hoverRow("Singapore", true);
    EXPECT_TRUE(seen(hide)) << "wherever the pointer goes";
    hoverRow("Singapore", false);
    focus(hide, false);
    EXPECT_FALSE(seen(hide));
    hoverRow("New York", true);
    EXPECT_TRUE(seen(hide));
    EXPECT_TRUE(live.press(hide));
    EXPECT_EQ(live.store().hidden(), std::set<std::string>{"new york"});
    EXPECT_TRUE(live.press("New York"));
    EXPECT_TRUE(live.store().hidden().empty());

    // Leaving a row late must not take the button from the row entered since.
    hoverRow("Singapore", true);
    hoverRow("New York", false);
    EXPECT_TRUE(seen("Hide Singapore for now — left out of the email and the fairest hour"));
}

TEST(RibbonControls, HomesTimeStandsOutAndTwelveHoursAreSmaller) {
    for (const auto& [format, home, other, size] :
         {std::tuple(HourFormat::h24, "09:40", "05:40", 27.0),
          {HourFormat::h12, "9:40 AM", "5:40 AM", 22.0}}) {
        Live live;
        live.store().format = format;
        const kit::Placed root = live.scene.placed();
        const auto look = [&](const char* time) {
            const std::string wanted = std::string("text \"") + time + '"';
            return kit::find(root,
                             [&](const kit::Placed& placed) {
                                 return placed.node->description() == wanted;
                             })
                ->environment;
        };
        EXPECT_EQ(look(home).colour, Palette::dark.homeTime);
        EXPECT_EQ(look(other).colour, Palette::dark.text);
        EXPECT_EQ(look(home).font.size, size);
    }
}

TEST(RibbonControls, AReadersMeetingStaysOnTheStrip) {
    Live live;
    live.store().propose(20);
    const kit::Placed root = live.scene.placed();
    const kit::Placed* meeting = kit::find(root, [](const kit::Placed& placed) {
        return placed.node->accessible() && placed.node->accessible()->range;
    });
    EXPECT_EQ(meeting->node->accessible()->range->most, 23 * 60);
}

// A Friday evening at home, by when it is Saturday elsewhere.
TEST(RibbonControls, DaysOffAreThoseOfTheFairestHour) {
    Live live({.now = "2026-03-20 20:30"});
    EXPECT_EQ(kit::dump(live.scene.placed()).find("Saturday in"), std::string::npos);
    live.store().propose(23);
    EXPECT_NE(kit::dump(live.scene.placed()).find("Saturday in Singapore"), std::string::npos);
}

// Rows of twelve hours keep the date, and lose the abbreviation, where both have no room.
TEST(RibbonControls, ADateIsWorthMoreThanAnAbbreviation) {
    Live live({.config = sixPlaces()});
    live.store().format = HourFormat::h12;
    const std::string all = kit::dump(live.scene.placed());
    EXPECT_NE(all.find("text \"EDT · Wed 18 Mar\""), std::string::npos);
    EXPECT_NE(all.find("text \"Wed 18 Mar\""), std::string::npos) << "in Kathmandu";
}

TEST(RibbonControls, HoverFindsTheColumn) {
    Live live;
    const auto hover = [&](std::optional<QPointF> at, bool onControl = false) {
        const kit::Placed root = live.scene.placed();
        const kit::Placed* grid = kit::find(root, [](const kit::Placed& placed) {
            return placed.node->interaction() && placed.node->interaction()->hover;
        });
        grid->node->interaction()->hover(at ? std::optional(kit::Hover{*at, onControl})
                                            : std::nullopt);
        return live.store().hoverCol();
    };
    EXPECT_EQ(hover(QPointF(342, 33)), 0);
    EXPECT_EQ(hover(QPointF(342 + 32 * 7 + 31, 90)), 7);
    EXPECT_EQ(hover(QPointF(1107.9, 90)), 23);
    EXPECT_EQ(hover(QPointF(1108, 90)), std::nullopt);
    EXPECT_EQ(hover(QPointF(500, 32)), std::nullopt);
    EXPECT_EQ(hover(QPointF(341.9, 90)), std::nullopt);
    hover(QPointF(500, 90));
    EXPECT_EQ(hover(std::nullopt), std::nullopt);
    EXPECT_EQ(hover(QPointF(500, 90), true), std::nullopt) << "a hidden row's button lies there";
}

TEST(RibbonControls, TypingPreviewsAndKeeps) {
    Live live;
    live.store().startTyping("1");
    const kit::Placed root = live.scene.placed();
    const kit::Placed* field = kit::find(
        root, [](const kit::Placed& placed) { return placed.node->textField() != nullptr; });
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(field->node->textField()->focusOnAppear);
    const auto says = [&](const char* words) {
        return kit::dump(live.scene.placed()).find(words) != std::string::npos;
    };
    field->node->textField()->onEdit("18:05 singapore");
    EXPECT_EQ(live.store().proposal(), utc("2026-03-18 10:05"));
    EXPECT_TRUE(says("return to keep · esc to cancel"));
    field->node->textField()->onEdit("18:05 nowhere");
    EXPECT_TRUE(says("a time, then a place — or leave the place out for home"));
    field->node->textField()->onSubmit();
    EXPECT_EQ(live.store().timeQuery(), std::nullopt);
    EXPECT_TRUE(says("Proposed   10:05–11:05 London"));
}

// What is copied shows nothing to press, but for the rows that are hidden.
TEST(RibbonControls, ThePictureHasNone) {
    RibbonScene scene({.here = "Asia/Tokyo", .options = {.solid = true, .hints = false}});
    scene.ui.updateReady = "1.2";
    for (const bool proposed : {false, true}) {
        if (proposed) scene.store->propose(12);
        const kit::Placed root = scene.placed();
        EXPECT_EQ(pressable(&root), nullptr) << kit::dump(root);
        EXPECT_EQ(kit::dump(root).find("Click an hour"), std::string::npos);
    }
}

TEST(RibbonControls, ChipsTellWhyADayIsOff) {
    Config config = threePlaces();
    config.places[0].daysOff = std::vector<std::string>{"2026-03-21"};
    RibbonScene scene(
        {.config = config, .now = "2026-03-21 03:00", .before = [](StoreWorld& world) {
             world.cacheHolidays("SG", R"("2026-03-21":{"name":"Hari Raya"},)"
                                       R"("2026-03-23":{"name":"Feast","regional":"Jurong"})");
             world.cacheHolidays("US", R"("2026-03-23":{"name":"Parade"})");
         }});
    const auto offers = [&](const char* tooltip) {
        return withTooltip(scene.placed(), tooltip) != nullptr;
    };
    EXPECT_TRUE(offers("A day off you added for London"));
    EXPECT_TRUE(offers("Hari Raya: a public holiday in Singapore"));
    scene.store->changeDay(2);
    scene.store->propose(15);
    EXPECT_TRUE(offers("Parade: a public holiday in United States"));
    EXPECT_TRUE(offers("Feast: a holiday in Jurong only"));
    EXPECT_NE(kit::dump(scene.placed()).find("\"?\""), std::string::npos)
        << "however long its name";
    scene.store->changeDay(-1);
    EXPECT_TRUE(offers("Not a working day in New York"));
}

}  // namespace
}  // namespace noonward::test
