#include <gtest/gtest.h>

#include <memory>

#include "app/ShellWorld.h"

namespace noonward::test {
namespace {

constexpr int tick = 40;

struct HoverWorld : ShellWorld {
    HoverWorld() { turn(); }

    void ticks(int count) { advance(count * tick); }
    /// Opened out by the pointer, which is still there.
    void hoverOpen() {
        pointer.moveTo(onNotch);
        ticks(3);
        advance(200);
        ASSERT_TRUE(ui.expanded());
    }
    /// Nothing to do until the pointer comes.
    testing::AssertionResult atRest() {
        if (queue.timers() != 0) return testing::AssertionFailure() << "a timer runs";
        if (pointer.zone() != QRectF(860, -6, 200, 32))
            return testing::AssertionFailure() << "nobody waits at the notch";
        return testing::AssertionSuccess();
    }

    Hover hover{windows, ui, pointer, queue};
};

TEST(Hover, OpensAfterThreeTicksInARow) {
    HoverWorld world;
    EXPECT_TRUE(world.atRest());
    world.advance(60000);
    EXPECT_TRUE(world.atRest());

    world.pointer.moveTo(onNotch);
    world.ticks(2);
    world.pointer.moveTo(elsewhere);
    world.ticks(1);
    EXPECT_TRUE(world.atRest());
    world.pointer.moveTo(onNotch);
    world.ticks(2);
    EXPECT_FALSE(world.cap.visible()) << "the two ticks from before must not count";
    world.ticks(1);
    EXPECT_TRUE(world.cap.visible());
    EXPECT_TRUE(world.ui.expanded());
}

TEST(Hover, FoldsAfterEightTicksAway) {
    HoverWorld world;
    world.hoverOpen();
    world.pointer.moveTo(QPointF(753, 39));  // 16 points from the opened notch, and half open
    world.ticks(20);
    EXPECT_TRUE(world.ui.showTimes());

    world.pointer.moveTo(std::nullopt);
    world.ticks(7);
    world.pointer.moveTo(onNotch);
    world.ticks(1);
    world.pointer.moveTo(QPointF(752, 39));
    world.ticks(7);
    EXPECT_TRUE(world.ui.showTimes());
    world.ticks(1);
    EXPECT_FALSE(world.ui.showTimes());
    world.advance(600);
    EXPECT_FALSE(world.ui.expanded());
    EXPECT_FALSE(world.cap.visible());
    EXPECT_TRUE(world.atRest());
}

TEST(Hover, SleepsWhileThePanelIsShown) {
    HoverWorld world;
    world.open();
    for (const QPointF& point : {elsewhere, onNotch, elsewhere}) {
        world.pointer.moveTo(point);
        world.ticks(30);
        EXPECT_TRUE(world.ui.expanded());
        EXPECT_EQ(world.queue.timers(), 0);
        EXPECT_EQ(world.pointer.zone(), std::nullopt);
    }
}

TEST(Hover, CountsAfreshOnceThePanelHasClosed) {
    HoverWorld world;
    world.hoverOpen();
    world.pointer.moveTo(elsewhere);
    world.ticks(5);
    world.pointer.moveTo(onNotch);
    world.open();
    world.pointer.moveTo(elsewhere);
    world.windows.closePanel();
    world.ticks(3);
    EXPECT_TRUE(world.ui.showTimes()) << "the five ticks from before must not count";
    world.pointer.moveTo(onNotch);
    world.ticks(2);
    world.pointer.moveTo(elsewhere);
    world.ticks(7);
    EXPECT_TRUE(world.ui.showTimes()) << "the panel has gone with the pointer over the notch";
    world.ticks(1);
    EXPECT_FALSE(world.ui.showTimes());
    world.advance(600);
    EXPECT_TRUE(world.atRest());
}

TEST(Hover, OpensAgainWhenThePointerReturnsWhileFolding) {
    HoverWorld world;
    world.hoverOpen();
    world.pointer.moveTo(elsewhere);
    world.ticks(8);
    world.pointer.moveTo(onNotch);
    world.advance(400);
    EXPECT_TRUE(world.ui.showTimes());
    world.advance(600);
    EXPECT_TRUE(world.cap.visible()) << "what the folding had left to do is overtaken";
}

TEST(Hover, WaitsWhereTheNotchIsFoundAnew) {
    HoverWorld world;
    world.screens.screens = {{.frame = {1920, 200, 1280, 800}}};
    world.windows.findNotch();
    EXPECT_EQ(world.pointer.zone(), QRectF(2460, 194, 200, 32));
    world.pointer.moveTo(QPointF(2560, 210));
    world.ticks(3);
    EXPECT_TRUE(world.ui.expanded());
    EXPECT_EQ(world.cap.frame(), QRectF(2369, 200, 382, 24));
}

TEST(Hover, LeavesNothingBehind) {
    ShellWorld world;
    auto hover = std::make_unique<Hover>(world.windows, world.ui, world.pointer, world.queue);
    world.turn();
    world.pointer.moveTo(onNotch);
    hover.reset();
    EXPECT_EQ(world.queue.timers(), 0);
    world.windows.expand();
    world.advance(5000);
    EXPECT_TRUE(world.ui.expanded());
}

}  // namespace
}  // namespace noonward::test
