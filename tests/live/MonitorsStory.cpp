#include "live/Desktop.h"

namespace noonward::test {
namespace {

class MonitorsStory : public Desktop {};

TEST_F(MonitorsStory, TheNotchIsFoundAgainWhereverTheyComeAndGo) {
    launch();
    openRibbon();
    EXPECT_TRUE(xrandr({"--setmonitor", "right", "800/200x900/200+800+0", "none"}));
    EXPECT_TRUE(xrandr({"--setmonitor", "*left", "800/200x900/200+0+0", "screen"}));
    see("the ribbon gone", [this] { return !panel(); });
    see("the wait at the left one's notch", [this] { return sight.isTrapAt({300, -6, 200, 32}); });

    hand.movePointer({400, 12});
    see("the expanded notch", [this] { return isExpanded(); });
    EXPECT_EQ(cap(), QRect(209, 0, 382, 24));
    hand.click(1);
    see("the ribbon", [this] { return panel(); });
    EXPECT_EQ(panel()->left(), 8) << "it is wider than the monitor: its beginning can be seen";

    EXPECT_TRUE(xrandr({"--delmonitor", "right"}));
    EXPECT_TRUE(xrandr({"--delmonitor", "left"}));
    see("the ribbon gone", [this] { return !panel(); });
    moveAway();
    see("the wait at the only one's notch", [this] { return isTrapLaid(); });
    hoverNotch();
    EXPECT_EQ(cap(), QRect(609, 0, 382, 24));
}

// The resource by which desktops tell how large they show everything, 96 being life size.
TEST_F(MonitorsStory, OnALargeScaleEverythingIsLarger) {
    constexpr double scale = 1.25;
    const std::string resources = "Xft.dpi:\t120\n";
    xcb_change_property(other.connection(), XCB_PROP_MODE_REPLACE, other.root(),
                        XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(resources.size()), resources.data());
    other.sync();
    trap = {675, -7, 250, 40};
    launch();
    hand.key("Control+Alt+t");
    const auto shown = [&] {
        for (const auto& [id, frame] : sight.windows()) {
            if (frame.top() == top * scale && frame.width() == 1196 * scale &&
                frame.height() > 250 * scale && std::abs(frame.center().x() - 800) <= 1)
                return true;
        }
        return false;
    };
    see("a larger ribbon", shown);
    const QPointF ten((1280 - 1196) / 2.0 + 342 + 10 * 32 + 15, 24 + 6 + 40 + 28);
    hand.clickAt((ten * scale).toPoint());
    EXPECT_EQ(copiedClock().minutes % (24 * 60), 10 * 60);
}

}  // namespace
}  // namespace noonward::test
