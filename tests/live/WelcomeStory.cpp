#include "live/Desktop.h"

namespace noonward::test {
namespace {

class WelcomeStory : public Desktop {};

TEST_F(WelcomeStory, ComesByItselfAndOnce) {
    configure({{"welcomed", false}});
    launch();
    see("the welcome", [this] { return isPanelSeen(); });
    EXPECT_LT(panel()->width(), 1196);
    hand.key("Escape");
    see("the welcome gone", [this] { return !panel(); });
    see("that this is kept", [this] { return config()["welcomed"] == true; });
    openRibbon();
    EXPECT_EQ(panel()->width(), 1196);
}

}  // namespace
}  // namespace noonward::test
