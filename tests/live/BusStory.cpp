#include "live/Desktop.h"

namespace noonward::test {
namespace {

class BusStory : public Desktop {};

TEST_F(BusStory, SignalsOfOthersOpenAndClose) {
    launch();
    openRibbon();
    sendSignal("toggle");
    see("the ribbon gone", [this] { return !panel(); });
    sendSignal("toggle");
    see("the ribbon", [this] { return isRibbonSeen(); });
    sendSignal("settings");
    see("the settings", [this] { return areSettingsSeen(); });
    sendSignal("toggle");
    see("the settings gone", [this] { return !panel(); });
    sendSignal("settings");
    see("the settings", [this] { return areSettingsSeen(); });
}

TEST_F(BusStory, WithoutABusOnlyThatIsMissing) {
    bus.stop();
    launch();
    openRibbon();
}

TEST_F(BusStory, SomebodyElsesHotKeyStaysTheirs) {
    other.grabKey(hand.codeOf("t"), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);
    launch();
    hand.key("Control+Alt+t");
    see("the key there", [this] { return !other.keys().empty(); });
    EXPECT_EQ(sight.shown(), 0);
    hoverNotch();
    hand.click(1);
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand.key("s");
    see("the settings", [this] { return areSettingsSeen(); });
}

}  // namespace
}  // namespace noonward::test
