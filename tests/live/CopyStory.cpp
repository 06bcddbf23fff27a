#include "live/Desktop.h"

namespace noonward::test {
namespace {

class CopyStory : public Desktop {
 protected:
    void SetUp() override {
        launch();
        openRibbon();
    }
};

TEST_F(CopyStory, TheBlockIsDraggedHourForHour) {
    hand.clickAt(hour(9));
    const int before = copiedClock().minutes;
    hand.drag(hour(9), hour(11));
    EXPECT_EQ(copiedClock().minutes, before + 120);
    hand.drag(hour(11.5), hour(10.5));
    EXPECT_EQ(copiedClock().minutes, before + 60);
    hand.clickAt(hour(15));
    EXPECT_EQ(copiedClock().minutes, before + 6 * 60);
}

TEST_F(CopyStory, TheInvitationIsForTheProposal) {
    hand.clickAt(hour(14));
    const std::string invitation = copiedBy([this] { hand.clickAt(copyButton()); });
    EXPECT_EQ(invitation.find("Proposed time (1 hour):\n"), 0U) << invitation;
    EXPECT_NE(invitation.find(": 14:00–15:00 "), std::string::npos) << invitation;
    EXPECT_NE(invitation.find("\nNew York: "), std::string::npos) << invitation;
    EXPECT_EQ(paste("TARGETS").find("image/"), std::string::npos);
}

}  // namespace
}  // namespace noonward::test
