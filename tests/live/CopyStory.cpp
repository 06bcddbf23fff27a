#include <QImage>
#include <array>

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

TEST_F(CopyStory, ThePictureIsAllThereAndNothingElseIs) {
    const int height = panel()->height();
    for (const char* key : {"p", "y"}) {
        const std::string png = copiedBy([&] { hand.key(key); }, "image/png");
        EXPECT_EQ(paste("TARGETS").find("STRING"), std::string::npos);
        QImage picture;
        ASSERT_TRUE(picture.loadFromData(QByteArray::fromStdString(png), "PNG")) << png.size();
        EXPECT_EQ(picture.width(), 2 * 1196);
        EXPECT_LT(picture.height(), 2 * height) << "it has no hints";
        EXPECT_GT(picture.height(), 2 * (height - 40));
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "its corners are round";
        EXPECT_EQ(picture.pixelColor(picture.width() / 2, 6), QColor(0xaa, 0x27, 0x2f));
        EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() - 12),
                  QColor(0x08, 0x1e, 0x32));
    }
}

}  // namespace
}  // namespace noonward::test
