#include "live/Desktop.h"

namespace noonward::test {
namespace {

// Who manages the windows decides who has the keyboard, and what can be seen through.
class FocusStory : public Desktop, public testing::WithParamInterface<Surroundings> {
 protected:
    void SetUp() override {
        furnish(GetParam());
        window = showOther();
        launch();
    }

    xcb_window_t window = XCB_WINDOW_NONE;
};

TEST_P(FocusStory, TheHotKeyBorrowsTheKeyboardAndGivesItBack) {
    openRibbon();
    see("the keyboard in the panel", [this] { return sight.focused() != window; });
    other.keys();
    hand.type("7:30am ny");
    hand.key("Return");
    const std::string times = copied();
    EXPECT_NE(times.find("New York 07:30 "), std::string::npos) << times;
    hand.key("Escape");
    see("the ribbon gone", [this] { return !panel(); });
    EXPECT_TRUE(other.keys().empty());

    see("the keyboard given back", [this] { return sight.focused() == window; });
    hand.key("x");
    hand.sync();
    EXPECT_EQ(other.keys(), std::vector{hand.codeOf("x")});

    openRibbon();
    hand.key("Control+Alt+t");
    see("the ribbon gone", [this] { return !panel(); });
    see("the keyboard given back", [this] { return sight.focused() == window; });
}

// The colour of each can be seen beside the panel and would be where it is.
TEST_P(FocusStory, NobodyElsesWindowCoversThePanel) {
    constexpr QPoint beside{1450, 450};
    constexpr QRect wide{0, 0, 1580, 820};  // wherever it is put
    openRibbon();
    const xcb_window_t first = other.show(wide, 0x00aa00);
    see("another window", [&] { return sight.colour(beside) == 0x00aa00; });
    see("the ribbon before it", [this] { return isRibbonSeen(); });
    other.show(wide, 0x0000aa);
    see("a further one", [&] { return sight.colour(beside) == 0x0000aa; });
    see("the ribbon before that", [this] { return isRibbonSeen(); });
    other.raise(first);
    see("the first one raised", [&] { return sight.colour(beside) == 0x00aa00; });
    see("the ribbon before it still", [this] { return isRibbonSeen(); });
    EXPECT_EQ(cap(), QRect(609, 0, 382, 24));
}

std::string nameOf(const testing::TestParamInfo<Surroundings>& info) {
    switch (info.param) {
        case Surroundings::bare:
            return "bare";
        case Surroundings::openbox:
            return "openbox";
        default:
            return "picom";
    }
}

INSTANTIATE_TEST_SUITE_P(On, FocusStory,
                         testing::Values(Surroundings::bare, Surroundings::openbox,
                                         Surroundings::picom),
                         nameOf);

}  // namespace
}  // namespace noonward::test
