#include "app/GridMouse.h"

#include <gtest/gtest.h>

#include "app/ShellWorld.h"
#include "views/theme/Metrics.h"

namespace noonward::test {
namespace {

constexpr double rowsBottom = 6 + 40 + 3 * 56 + 2 * 8;  // stripe, captions, three places

double atHour(double hour) {
    return Metrics::gridX + hour * Metrics::pitch;
}

// The ribbon with an hour's meeting proposed at ten, local time and column alike.
struct Grid : ShellWorld {
    Grid() {
        ui.panelShown = true;
        store.propose(10);
        ten = *store.proposal();
    }
    // Minutes from ten to the proposal.
    long proposed() { return std::chrono::duration_cast<minutes>(*store.proposal() - ten).count(); }

    Instant ten;
    GridMouse mouse{store, ui};
};

TEST(GridMouse, PressesOnTheGridAreUsedUp) {
    struct Case {
        double x, y;
        bool swallowed;
        long proposed;  // minutes after ten
    };
    for (const auto& [x, y, swallowed, proposed] : {
             Case{atHour(3) + 16, 100, true, -420},
             // The meeting, with a tenth of an hour at each end.
             {atHour(10.5), 100, true, 0},
             {atHour(9.95), 100, true, 0},
             {atHour(9.901), 100, true, 0},
             {atHour(9.899), 100, true, -60},
             {atHour(9.8), 100, true, -60},
             {atHour(11.099), 100, true, 0},
             {atHour(11.101), 100, true, 60},
             // The edges of the grid.
             {342, 100, true, -600},
             {341.9, 100, false, 0},
             {1107.9, 100, true, 780},
             {1108, 100, false, 0},
             {500, 38, true, -360},
             {500, 37, false, 0},
             {500, rowsBottom + 4, true, -360},
             {500, rowsBottom + 4.1, false, 0},
         }) {
        Grid grid;
        EXPECT_EQ(grid.mouse.press({x, y}), swallowed) << x << ' ' << y;
        EXPECT_EQ(grid.proposed(), proposed) << x << ' ' << y;
        EXPECT_EQ(grid.mouse.release(), swallowed) << x << ' ' << y;
    }
}

TEST(GridMouse, HiddenRowsMakeTheGridLower) {
    Grid grid;
    grid.store.toggleHidden(grid.store.rows().at(1));
    EXPECT_TRUE(grid.mouse.press({500, rowsBottom - 30 + 4}));
    EXPECT_FALSE(grid.mouse.press({500, rowsBottom - 30 + 5}));
}

TEST(GridMouse, DragsTheMeeting) {
    Grid grid;
    const double from = atHour(10.5);
    EXPECT_FALSE(grid.mouse.move({from, 100})) << "nothing is held yet";
    grid.mouse.press({from, 100});
    for (const auto& [by, minutes] : {std::pair{2.0 * Metrics::pitch, 120L},
                                      {-Metrics::pitch, -60L},
                                      {0.0, 0L},
                                      {Metrics::pitch / 60 * 7.6, 10L},
                                      {-5000.0, -600L},
                                      {5000.0, 780L}}) {
        EXPECT_TRUE(grid.mouse.move({from + by, 700})) << "the height does not count any more";
        EXPECT_EQ(grid.proposed(), minutes) << by;
    }
    EXPECT_TRUE(grid.mouse.release());
    EXPECT_FALSE(grid.mouse.move({from, 100}));
    EXPECT_FALSE(grid.mouse.release());
    EXPECT_EQ(grid.proposed(), 780);
}

TEST(GridMouse, APressElsewhereProposesAndHolds) {
    Grid grid;
    grid.store.backToNow();
    grid.mouse.press({atHour(5) + 20, 100});
    EXPECT_EQ(grid.proposed(), -300);
    grid.mouse.move({atHour(6) + 20, 100});
    EXPECT_EQ(grid.proposed(), -240);
    EXPECT_FALSE(grid.mouse.press({100, 100})) << "off the grid it lets go";
    EXPECT_FALSE(grid.mouse.move({atHour(8), 100}));
    EXPECT_EQ(grid.proposed(), -240);
}

TEST(GridMouse, FollowsTheStripAsItDrifts) {
    Config config = threePlaces();
    config.rolling = true;
    ShellWorld world(config);  // half past nine: the strip is half an hour to the left
    world.ui.panelShown = true;
    world.store.propose(10);
    GridMouse mouse(world.store, world.ui);
    const Instant before = *world.store.proposal();
    EXPECT_TRUE(mouse.press({atHour(9.45), 100}));
    EXPECT_EQ(world.store.proposal(), before);
    EXPECT_TRUE(mouse.press({atHour(9.35), 100}));
    EXPECT_EQ(world.store.proposal(), before - hours(1));
}

TEST(GridMouse, LeavesOtherContentAlone) {
    using Prepare = void (*)(Grid&);
    for (const Prepare prepare : {
             Prepare([](Grid& grid) { grid.ui.panelShown = false; }),
             Prepare([](Grid& grid) { grid.ui.settingsShown = true; }),
             Prepare([](Grid& grid) { grid.ui.welcomeShown = true; }),
             Prepare([](Grid& grid) { grid.store.startTyping("10:00"); }),
         }) {
        Grid grid;
        grid.mouse.press({atHour(10.5), 100});
        prepare(grid);
        EXPECT_FALSE(grid.mouse.move({atHour(12.5), 100}));
        EXPECT_FALSE(grid.mouse.release());
        EXPECT_FALSE(grid.mouse.press({atHour(3), 100}));
        EXPECT_EQ(grid.proposed(), 0);
    }
}

TEST(GridMouse, LetGoOfElsewhereTheMeetingStays) {
    Grid grid;
    grid.mouse.press({atHour(10.5), 100});
    grid.ui.settingsShown = true;
    grid.mouse.release();
    grid.ui.settingsShown = false;
    EXPECT_FALSE(grid.mouse.move({atHour(12.5), 100}));
}

}  // namespace
}  // namespace noonward::test
