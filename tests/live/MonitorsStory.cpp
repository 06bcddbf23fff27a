#include "live/Desktop.h"

namespace noonward::test {
namespace {

class MonitorsStory : public Desktop {
 protected:
    void xrandr(std::vector<std::string> words) {
        words.insert(words.begin(), {"xrandr", "-display", display});
        Process process(words);
        EXPECT_EQ(exitStatus(process), 0);
    }
};

TEST_F(MonitorsStory, TheNotchIsFoundAgainWhereverTheyComeAndGo) {
    launch();
    openRibbon();
    xrandr({"--setmonitor", "right", "800/200x900/200+800+0", "none"});
    xrandr({"--setmonitor", "*left", "800/200x900/200+0+0", "screen"});
    see("the ribbon gone", [this] { return !panel(); });
    see("the wait at the left one's notch", [this] { return sight.isTrapAt({300, -6, 200, 32}); });

    hand.movePointer({400, 12});
    see("the expanded notch", [this] { return isExpanded(); });
    EXPECT_EQ(cap(), QRect(209, 0, 382, 24));
    hand.click(1);
    see("the ribbon", [this] { return panel(); });
    EXPECT_EQ(panel()->left(), 8) << "it is wider than the monitor: its beginning can be seen";

    xrandr({"--delmonitor", "right"});
    xrandr({"--delmonitor", "left"});
    see("the ribbon gone", [this] { return !panel(); });
    moveAway();
    see("the wait at the only one's notch", [this] { return isTrapLaid(); });
    hoverNotch();
    EXPECT_EQ(cap(), QRect(609, 0, 382, 24));
}

}  // namespace
}  // namespace noonward::test
