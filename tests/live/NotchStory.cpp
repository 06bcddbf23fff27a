#include "live/Desktop.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

// What folding would have to show, twice over.
constexpr auto foldingTime = 500ms;

class NotchStory : public Desktop {
 protected:
    // A place in the left ear, beside its text, that even the spring's swing back does not reach.
    bool isEarThere() { return sight.colour({660, 3}) == 0; }
};

TEST_F(NotchStory, OpensWhereThePointerRestsAndFoldsWhenItHasLeft) {
    launch();
    hand.pass(notch, 20ms, nowhere);
    see("the wait at the notch again", [this] { return isTrapLaid(); });
    EXPECT_EQ(sight.shown(), 0) << "the pointer only passed";

    hoverNotch();
    EXPECT_EQ(cap(), QRect(609, 0, 382, 24));
    hand.pass(nowhere, 80ms, notch);
    EXPECT_TRUE(staysFor(foldingTime, [this] { return isEarThere(); }));
    leaveNotch();
    EXPECT_EQ(sight.colour({622, 12}), wallpaper);
    EXPECT_EQ(sight.shown(), 1);
}

TEST_F(NotchStory, CannotBeSeenNorMetBeforeThat) {
    const QRect zone(700, 0, 200, 26);
    const xcb_window_t below = other.show({0, 0, 1600, 400}, 0x8899aa);
    const auto before = other.pixels(zone);
    launch();
    EXPECT_EQ(other.pixels(zone), before);

    // The program is halted in its stride, or it would soon have unfolded below the pointer.
    see("a press that goes through", [&] {
        moveAway();
        see("the wait at the notch", [this] { return isTrapLaid(); });
        hand.movePointer(notch);
        see("the pointer being noticed", [this] { return !isTrapLaid(); });
        program->signal(SIGSTOP);
        const bool isInTime = !cap();
        if (isInTime) hand.click(1);
        moveAway();
        program->signal(SIGCONT);
        return isInTime;
    });
    EXPECT_EQ(other.presses(), 1);
    other.raise(below);
}

TEST_F(NotchStory, APressElsewhereClosesTheRibbonAndIsHeardThere) {
    showOther();
    launch();
    openRibbon();
    hand.clickAt({300, 600});
    see("the ribbon gone", [this] { return !panel(); });
    EXPECT_EQ(other.presses(), 1);
    see("the notch folded", [this] { return !cap(); });
}

}  // namespace
}  // namespace noonward::test
