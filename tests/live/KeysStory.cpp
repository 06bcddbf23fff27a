#include "live/Desktop.h"

namespace noonward::test {
namespace {

constexpr int day = 24 * 60;
constexpr int week = 7 * day;

class KeysStory : public Desktop {
 protected:
    void SetUp() override {
        launch();
        openRibbon();
        plainHeight_ = panel()->height();
    }

    /// Proposes ten o'clock on the shown day; the pointer stays off the grid afterwards.
    void proposeTen() {
        hand.clickAt(hour(10));
        seeProposal();
        moveAway();
    }
    /// A proposal has a line of its own.
    void seeProposal() {
        see("a proposal", [this] { return panel()->height() > plainHeight_; });
    }

    int plainHeight_ = 0;
};

TEST_F(KeysStory, MoveTheProposal) {
    proposeTen();
    int shown = copiedClock().minutes;
    EXPECT_EQ(shown % day, 10 * 60);
    struct Case {
        const char* key;
        int by;  // minutes
    };
    const Case cases[] = {
        {"Right", 5},    {"Shift+Right", 60}, {"Left", -5}, {"Shift+Left", -60},  {"l", 60},
        {"Shift+l", 60}, {"h", -60},          {"x", 0},     {"Control+Right", 0}, {"Control+l", 0},
        {"]", day},      {"]", day},          {"[", -day},  {"Right", 5},
    };
    for (const Case& each : cases) {
        hand.key(each.key);
        const int now = copiedClock().minutes;
        EXPECT_EQ(now, (shown + each.by + week) % week) << each.key;
        shown = now;
    }
}

TEST_F(KeysStory, SwitchTheFormatWithoutKeepingIt) {
    proposeTen();
    const int height = panel()->height();
    const std::string usual = copied();
    hand.key("t");
    EXPECT_NE(copied().find(" 10:00 AM "), std::string::npos);
    hand.key("t");
    see("a row for UTC", [&] { return panel()->height() == height + 64; });
    EXPECT_EQ(copied(), usual);
    hand.key("t");
    see("the row gone", [&] { return panel()->height() == height; });
    changeLengthTo(15);
    EXPECT_EQ(config()["hourFormat"], "24h");
}

TEST_F(KeysStory, TypeATimeOrGiveItUp) {
    proposeTen();
    const std::string before = copied();
    takeClipboard();
    hand.type("8:20c");
    hand.key("Escape");
    changeLengthTo(15);
    EXPECT_TRUE(hasClipboard()) << "it was typed, not obeyed";
    EXPECT_EQ(copied(), before);

    hand.type("8:20");
    hand.key("Return");
    EXPECT_EQ(copiedClock().minutes % day, 8 * 60 + 20);
    EXPECT_EQ(copied("Control+c"), copied());
    takeClipboard();
    hand.key("Control+Shift+c");
    changeLengthTo(30);
    EXPECT_TRUE(hasClipboard());
}

TEST_F(KeysStory, OpenTheSettingsAndLeaveThem) {
    hand.key("s");
    see("the settings", [this] { return areSettingsSeen(); });
    hand.key("Control+q");
    hand.key("Escape");
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand.key("s");
    see("the settings", [this] { return areSettingsSeen(); });
    hand.key("Control+w");
    see("the panel gone", [this] { return !panel(); });
    openRibbon();
}

}  // namespace
}  // namespace noonward::test
