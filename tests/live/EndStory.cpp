#include "live/Desktop.h"

namespace noonward::test {
namespace {

class EndStory : public Desktop {
 protected:
    void SetUp() override {
        launch();
        before = config();
    }
    void TearDown() override {
        EXPECT_EQ(config(), before);
        Desktop::TearDown();
    }

    void openMenu() {
        hoverNotch();
        hand.click(3);
        see("the menu", [this] { return menu(); });
    }

    nlohmann::json before;
};

TEST_F(EndStory, ByTheMenuAndTheMouse) {
    openMenu();
    hand.clickAt(menu()->bottomLeft() + QPoint(30, -12));
    EXPECT_EQ(exitStatus(), 0);
}

TEST_F(EndStory, ByTheKeyboard) {
    openRibbon();
    hand.key("Control+q");
    EXPECT_EQ(exitStatus(), 0);
}

TEST_F(EndStory, BySignals) {
    for (const int signal : {SIGTERM, SIGHUP}) {
        openRibbon();
        program->signal(signal);
        EXPECT_EQ(exitStatus(), 0) << signal;
        launch();
    }
}

// It cannot go on; it need not be mourned either.
TEST_F(EndStory, WithTheServer) {
    // What is cut off frees nothing: no leak that a sanitizer finds then is one.
    program.reset();
    announced["ASAN_OPTIONS"] = "detect_leaks=0";
    launch();
    openRibbon();
    server.stop();
    EXPECT_GE(exitStatus(), 0) << "it was killed by a signal";
}

TEST_F(EndStory, NotByAConnectionThatBreaks) {
    program->signal(SIGPIPE);  // as a write does to which nobody listens any more
    openRibbon();
}

TEST_F(EndStory, TheMenuOutlivesTheNotch) {
    openMenu();
    moveAway();
    see("the notch folded", [this] { return !cap(); });
    EXPECT_TRUE(menu());
    hand.key("Down");
    hand.key("Return");
    see("the settings", [this] { return areSettingsSeen(); });
    EXPECT_FALSE(menu());
}

TEST_F(EndStory, PressedElsewhereTheMenuIsGone) {
    openMenu();
    hand.movePointer({300, 600});
    see("the menu gone", [this] {
        hand.click(1);  // the first may come before the menu hears of all presses
        return !menu();
    });
    leaveNotch();
}

}  // namespace
}  // namespace noonward::test
