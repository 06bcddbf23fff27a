#include "app/PanelHost.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

#include "app/Render.h"
#include "app/ShellWorld.h"
#include "app/UpdateNotices.h"
#include "fakes/FakeGeocoder.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeUpdater.h"
#include "kit/FirstClickHostingView.h"
#include "kit/OffScreen.h"
#include "views/Finding.h"
#include "views/notch/NotchView.h"

namespace noonward::test {
namespace {

struct Hosted : ShellWorld {
    kit::Placed placed() const {
        return kit::layOut(host.body(Scheme::dark, Backing::opaque), rootEnvironment());
    }
    bool says(const char* words) const {
        return kit::dump(placed()).find(words) != std::string::npos;
    }
    void press(const char* words) const {
        const kit::Placed root = placed();
        const kit::Placed* button = buttonSaying(root, words);
        ASSERT_NE(button, nullptr) << kit::dump(root);
        button->node->interaction()->press();
    }

    int invited = 0;
    FakeGeocoder geocoder;
    FakeLoginItem loginItem;
    PanelHost host{store,
                   ui,
                   {.animations = animations,
                    .holidays = planner.holidays,
                    .loginItem = &loginItem,
                    .geocoder = &geocoder},
                   [this] { ++invited; }};
};

TEST(PanelHost, ShowsTheWelcomeThenTheSettingsThenTheRibbon) {
    Hosted world;
    world.ui.welcomeShown = true;
    world.ui.settingsShown = true;
    EXPECT_TRUE(world.says("tucked into your notch"));
    world.press("Got it");
    EXPECT_FALSE(world.ui.welcomeShown());
    EXPECT_FALSE(world.ui.settingsShown()) << "places are chosen only on request";
    EXPECT_TRUE(world.planner.saved().welcomed);

    world.ui.settingsShown = true;
    EXPECT_TRUE(world.says("text \"Places & appearance\""));
    EXPECT_FALSE(world.says("Fairest hour"));
    world.press("Done");
    EXPECT_TRUE(world.says("Fairest hour"));
    world.press("Copy for email");
    EXPECT_EQ(world.invited, 1);
}

TEST(PanelHost, TheWelcomeIsSeenOnceItIsLeft) {
    struct Way {
        const char* button;  // none: the Return key
        bool choosesPlaces;
    };
    for (const auto& [button, choosesPlaces] :
         {Way{"Got it", false}, {"Choose my places", true}, {nullptr, false}}) {
        Hosted world;
        world.ui.welcomeShown = true;
        EXPECT_FALSE(world.planner.saved().welcomed);
        if (button) {
            world.press(button);
        } else {
            kit::FirstClickHostingView window(world.animations, rootEnvironment(), [&] {
                return world.host.body(Scheme::dark, Backing::opaque);
            });
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
            QApplication::sendEvent(&window, &key);
        }
        EXPECT_FALSE(world.ui.welcomeShown());
        EXPECT_EQ(world.ui.settingsShown(), choosesPlaces);
        EXPECT_TRUE(world.planner.saved().welcomed);
    }
}

TEST(PanelHost, EachContentHasAnIdentityOfItsOwn) {
    Hosted world;
    const auto identity = [&] {
        const kit::Placed root = world.placed();
        return kit::find(root,
                         [](const kit::Placed& placed) {
                             return placed.node->description().rfind("rectangle", 0) == 0;
                         })
            ->id;
    };
    const kit::Id ribbon = identity();
    world.ui.settingsShown = true;
    const kit::Id settings = identity();
    world.ui.welcomeShown = true;
    const kit::Id welcome = identity();
    EXPECT_NE(ribbon, settings);
    EXPECT_NE(settings, welcome);
    EXPECT_NE(welcome, ribbon);
    world.ui.welcomeShown = false;
    world.ui.settingsShown = false;
    EXPECT_EQ(identity(), ribbon);
}

TEST(PanelHost, GrowsOutOfTheNotchWithoutChangingItsSize) {
    Hosted world;
    const kit::Placed hidden = world.placed();
    world.ui.panelShown = true;
    const kit::Placed shown = world.placed();
    EXPECT_EQ(shown.rect, hidden.rect) << "the window has its size before it opens";
    kit::Tiles tiles;
    EXPECT_EQ(kit::paintOffScreen(hidden, 1, tiles).pixelColor(598, 60).alpha(), 0);
    EXPECT_EQ(kit::paintOffScreen(shown, 1, tiles).pixelColor(598, 60).alpha(), 255);
}

// Every way to ask for updates closes the panel, whether there is an updater or not.
TEST(UpdateNotices, MakeRoomForTheUpdater) {
    FakeUpdater updater;
    for (Updater* installed : {static_cast<Updater*>(nullptr), static_cast<Updater*>(&updater)}) {
        for (const bool fromPill : {true, false}) {
            Hosted world;
            UpdateNotices notices(world.ui, world.windows, installed);
            world.ui.onUpdates = [&] { notices.check(); };
            world.open();
            world.ui.updateReady = "1.2";
            if (fromPill) {
                world.press("Update to 1.2");
            } else {
                const kit::View notch = NotchView(world.store, world.ui).body();
                notch->interaction()->menu.at(1).choose();
            }
            EXPECT_FALSE(world.ui.panelShown());
        }
    }
    EXPECT_EQ(updater.checks, 2);
}

TEST(UpdateNotices, TellOnlyOfWhatTheUserHasNotSeen) {
    ShellWorld world;
    UpdateNotices notices(world.ui, world.windows, nullptr);
    const auto& ready = world.ui.updateReady;
    notices.willShow({.byUpdater = true, .version = "1.2"});
    notices.willShow({.askedByUser = true, .version = "1.2"});
    EXPECT_EQ(ready(), std::nullopt);
    notices.willShow({.version = "1.2"});
    EXPECT_EQ(ready(), "1.2");
    notices.userHasSeen();
    EXPECT_EQ(ready(), std::nullopt);
    notices.willShow({.version = "1.3"});
    notices.sessionIsEnding();
    EXPECT_EQ(ready(), std::nullopt);
    EXPECT_TRUE(notices.updaterShowsScheduled(true));
    EXPECT_FALSE(notices.updaterShowsScheduled(false));
}

}  // namespace
}  // namespace noonward::test
