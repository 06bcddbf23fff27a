#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "app/KeyRouting.h"
#include "app/ShellWorld.h"
#include "app/UpdateNotices.h"

namespace noonward::test {
namespace {

using Content = PanelWindows::Content;

// The whole state in one line, such as "expanded times panel | cap panel key".
std::string state(const ShellWorld& world) {
    std::string text;
    const auto add = [&](bool holds, const char* word) {
        if (holds) text += (text.empty() ? "" : " ") + std::string(word);
    };
    add(world.ui.expanded(), "expanded");
    add(world.ui.showTimes(), "times");
    add(world.ui.panelShown(), "shown");
    add(world.ui.settingsShown(), "settings");
    add(world.ui.welcomeShown(), "welcome");
    add(world.cap.visible(), "cap");
    add(world.panel.visible(), "panel");
    add(world.panel.key(), "key");
    return text;
}

const std::string open = "expanded times shown cap panel key";

TEST(PanelWindows, GoThroughTheirStagesInTime) {
    ShellWorld world;
    world.windows.expand();
    EXPECT_EQ(world.cap.frame(), QRectF(769, 0, 382, 24));
    EXPECT_EQ(state(world), "cap");
    world.turn();
    EXPECT_EQ(state(world), "expanded cap");
    EXPECT_EQ(world.feedback.levelChanges, 1);
    EXPECT_EQ(world.feedback.clicks, std::vector<double>{0.25});
    world.advance(89);
    EXPECT_EQ(state(world), "expanded cap");
    world.advance(1);
    EXPECT_EQ(state(world), "expanded times cap");

    world.windows.openPanel();
    EXPECT_EQ(state(world), "expanded times cap panel key");
    world.turn();
    EXPECT_EQ(state(world), open);

    world.windows.closePanel();
    EXPECT_EQ(state(world), "expanded times cap panel key");
    world.advance(159);
    EXPECT_EQ(state(world), "expanded times cap panel key");
    world.advance(1);
    EXPECT_EQ(state(world), "expanded cap") << "the pointer is elsewhere: the clocks go first";
    world.advance(69);
    EXPECT_EQ(state(world), "expanded cap");
    world.advance(1);
    EXPECT_EQ(state(world), "cap");
    world.advance(429);
    EXPECT_EQ(state(world), "cap");
    world.advance(1);
    EXPECT_EQ(state(world), "");
}

// Something begun, and what the user does at a moment on the way.
struct Reversal {
    const char* name;
    std::function<void(ShellWorld&)> begin;
    int at;  // milliseconds
    std::function<void(ShellWorld&)> reverse;
    std::string expected;  // once all has come to rest
};

const auto expand = [](ShellWorld& world) { world.windows.expand(); };
const auto expanded = [](ShellWorld& world) {
    world.windows.expand();
    world.advance(1000);
};
const auto fold = [](ShellWorld& world) {
    expanded(world);
    world.windows.collapse();
};
const auto show = [](ShellWorld& world) { world.windows.openPanel(); };
const auto hide = [](ShellWorld& world) { world.windows.closePanel(); };
const auto close = [](ShellWorld& world) {
    world.open();
    world.windows.closePanel();
};
const auto welcome = [](ShellWorld& world) { world.windows.welcomeSoon(); };
const auto collapse = [](ShellWorld& world) { world.windows.collapse(); };

class Reversed : public testing::TestWithParam<Reversal> {};

TEST_P(Reversed, TheLastWordCounts) {
    ShellWorld world;
    GetParam().begin(world);
    if (GetParam().at > 0) world.advance(GetParam().at);
    GetParam().reverse(world);
    world.advance(3000);
    EXPECT_EQ(state(world), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    JustBeforeAndAfterEachStep, Reversed,
    testing::Values(Reversal{"FoldedBeforeTheClocksShow", expand, 89, collapse, ""},
                    Reversal{"FoldedAfterTheClocksShow", expand, 90, collapse, ""},
                    Reversal{"FoldedUnderThePanel", show, 1000, collapse, open},
                    Reversal{"FoldedAsThePanelOpens",
                             [](ShellWorld& world) {
                                 expanded(world);
                                 show(world);
                             },
                             0, collapse, open},
                    Reversal{"ShownBeforeTheNotchNarrows", fold, 69, show, open},
                    Reversal{"ShownAfterTheNotchNarrows", fold, 70, show, open},
                    Reversal{"ShownBeforeTheNotchGoes", fold, 499, show, open},
                    Reversal{"ShownAfterTheNotchIsGone", fold, 500, show, open},
                    Reversal{"ExpandedBeforeTheNotchGoes", fold, 499, expand, "expanded times cap"},
                    Reversal{"ShownBeforeThePanelIsPutAway", close, 159, show, open},
                    Reversal{"ShownAfterThePanelIsPutAway", close, 160, show, open},
                    Reversal{"ShownWhileTheNotchFoldsAfterwards", close, 229, show, open},
                    Reversal{"ClosedBeforeTheWelcome",
                             [](ShellWorld& world) {
                                 show(world);
                                 welcome(world);
                             },
                             999, hide, "expanded times shown welcome cap panel key"},
                    Reversal{"ShownBeforeTheWelcome", welcome, 999, show,
                             "expanded times shown welcome cap panel key"},
                    Reversal{"ClosedAfterTheWelcome", welcome, 1000, hide, ""}),
    [](const auto& tested) { return tested.param.name; });

TEST(PanelWindows, TheSecondOfTwoFoldingsIsSeenWhole) {
    ShellWorld world;
    fold(world);
    world.advance(100);
    world.windows.expand();
    world.advance(200);
    world.windows.collapse();
    world.advance(499);
    EXPECT_TRUE(world.cap.visible());
    world.advance(1);
    EXPECT_FALSE(world.cap.visible());
}

TEST(PanelWindows, OpeningTwiceOpensOnce) {
    ShellWorld world;
    world.windows.expand();
    world.windows.openPanel();
    world.windows.openPanel();
    world.advance(1000);
    EXPECT_EQ(world.feedback.levelChanges, 1);
    world.windows.togglePanel();
    world.windows.togglePanel();
    world.advance(1000);
    EXPECT_EQ(state(world), open);
}

TEST(PanelWindows, ClickOnlyWhereTheUserWantsIt) {
    Config silent = threePlaces();
    silent.clickSound = false;
    ShellWorld world(silent);
    world.windows.expand();
    world.turn();
    EXPECT_EQ(world.feedback.levelChanges, 1);
    EXPECT_TRUE(world.feedback.clicks.empty());
}

TEST(PanelWindows, OpenOnTheModelAsItIsNow) {
    ShellWorld world;
    world.store.propose(7);
    world.store.changeDay(2);
    world.store.flash = "Copied";
    world.planner.clock.time += hours(3);
    world.windows.openPanel();
    EXPECT_EQ(world.store.proposal(), std::nullopt);
    EXPECT_EQ(world.store.dayOffset(), 0);
    EXPECT_EQ(world.store.flash(), std::nullopt);
    EXPECT_EQ(world.store.now(), world.planner.clock.time);

    world.turn();
    world.store.propose(7);
    world.windows.openPanel(Content::settings);
    EXPECT_TRUE(world.ui.settingsShown());
    EXPECT_NE(world.store.proposal(), std::nullopt) << "what is open only changes its content";
    world.windows.closePanel();
    world.advance(1000);
    EXPECT_EQ(world.store.proposal(), std::nullopt);
    EXPECT_FALSE(world.ui.settingsShown());
}

TEST(PanelWindows, CountTheWelcomeAsSeenHoweverItCloses) {
    using Road = std::function<void(ShellWorld&)>;
    const Road escape = [](ShellWorld& world) {
        KeyRouting keys(world.store, world.ui, world.queue,
                        {.closePanel = [&] { world.windows.closePanel(); }});
        keys.handleKey({.key = KeyPress::Key::escape});
    };
    const Road toggle = [](ShellWorld& world) { world.windows.togglePanel(); };
    const Road updates = [](ShellWorld& world) {
        UpdateNotices(world.ui, world.windows, nullptr).check();
    };
    for (const Road& road : {Road(hide), escape, toggle, updates}) {
        ShellWorld world;
        world.windows.welcomeSoon();
        world.advance(1001);
        EXPECT_EQ(state(world), "expanded shown welcome cap panel key");
        EXPECT_FALSE(world.planner.saved().welcomed);
        road(world);
        world.advance(160);
        EXPECT_FALSE(world.ui.welcomeShown());
        EXPECT_TRUE(world.planner.saved().welcomed);
    }
}

TEST(PanelWindows, ClosedWithThePointerOverTheNotchItStaysOpen) {
    ShellWorld world;
    world.open();
    world.pointer.moveTo(onNotch);
    world.windows.closePanel();
    world.advance(1000);
    EXPECT_EQ(state(world), "expanded times cap");
}

TEST(PanelWindows, HangThePanelInsideTheScreen) {
    struct Place {
        QRectF screen;
        QRectF notchLeft, notchRight;  // strips beside a notch; none: the middle
        double width;
        QRectF expected;
    };
    for (const auto& [screen, left, right, width, expected] :
         {Place{{0, 0, 1920, 1080}, {}, {}, 1196, {362, 24, 1196, 400}},
          Place{{1920, 100, 1280, 800}, {}, {}, 1196, {1962, 124, 1196, 400}},
          Place{{0, 0, 1400, 900}, {0, 0, 900, 32}, {1084, 0, 316, 32}, 1196, {196, 32, 1196, 400}},
          Place{{0, 0, 1400, 900}, {0, 0, 300, 32}, {484, 0, 916, 32}, 1196, {8, 32, 1196, 400}},
          Place{{100, 0, 1200, 900}, {}, {}, 1196, {108, 24, 1196, 400}}}) {
        ShellWorld world;
        Screen only{.frame = screen};
        if (!left.isEmpty()) {
            only.topInset = left.height();
            only.auxiliaryTopLeft = left;
            only.auxiliaryTopRight = right;
        }
        world.screens.screens = {only};
        world.panel.fitting = {width, 400};
        world.windows.findNotch();
        world.windows.layoutPanel();
        EXPECT_EQ(world.panel.frame(), expected) << screen.x() << ' ' << left.right();
    }
}

TEST(PanelWindows, WithoutScreensStayWhereTheyWere) {
    ShellWorld world;
    world.windows.layoutPanel();
    world.screens.screens.clear();
    world.windows.findNotch();
    EXPECT_EQ(world.windows.notch(), QRectF(868, 0, 184, 24));
    EXPECT_EQ(world.ui.notchWidth, 184);
    EXPECT_EQ(world.ui.height, 24);

    FakeWindow never;
    PanelWindows homeless({.cap = world.cap,
                           .panel = never,
                           .store = world.store,
                           .ui = world.ui,
                           .animations = world.animations,
                           .queue = world.queue,
                           .screens = world.screens,
                           .pointer = world.pointer,
                           .feedback = world.feedback});
    homeless.findNotch();
    homeless.layoutPanel();
    EXPECT_EQ(never.frame(), QRectF());
}

TEST(PanelWindows, GoneTheyLeaveTheRestInPeace) {
    FakeMainQueue queue;
    {
        ShellWorld world;
        auto windows =
            std::make_unique<PanelWindows>(PanelWindows::Services{.cap = world.cap,
                                                                  .panel = world.panel,
                                                                  .store = world.store,
                                                                  .ui = world.ui,
                                                                  .animations = world.animations,
                                                                  .queue = queue,
                                                                  .screens = world.screens,
                                                                  .pointer = world.pointer,
                                                                  .feedback = world.feedback});
        windows->findNotch();
        windows->openPanel();
        windows->welcomeSoon();
    }
    queue.advance(milliseconds(5000));
}

}  // namespace
}  // namespace noonward::test
