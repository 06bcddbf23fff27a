#include "app/Copying.h"

#include <gtest/gtest.h>

#include <QImage>
#include <memory>

#include "app/Render.h"
#include "app/ShellWorld.h"
#include "fakes/FakePasteboard.h"
#include "kit/Placed.h"
#include "views/ribbon/RibbonPanel.h"

namespace noonward::test {
namespace {

constexpr const char* textCopied = "Copied the times as text — paste them into a message";
constexpr const char* pictureCopied = "Copied as a picture — paste it to the people in the meeting";

struct Copies : ShellWorld {
    explicit Copies(const Config& config = threePlaces()) : ShellWorld(config) {}

    FakePasteboard pasteboard;
    Scheme scheme = Scheme::dark;
    Copying copying{store, ui, pasteboard, queue, [this] { return scheme; }};
};

TEST(Copying, TextIsOfWhatTheRibbonIsAbout) {
    Copies world;
    world.copying.copyText();
    EXPECT_EQ(world.pasteboard.text, world.store.asText(world.store.now()));
    EXPECT_EQ(world.store.flash(), textCopied);
    world.store.hoverCol = 14;
    world.copying.copyText();
    EXPECT_EQ(world.pasteboard.text, world.store.asText(world.store.instant(14)));
    world.store.propose(16);
    world.copying.copyText();
    EXPECT_EQ(world.pasteboard.text, world.store.asText(world.store.instant(16)));
}

TEST(Copying, InvitesToTheProposalOrTheFairestHour) {
    Copies world;
    world.copying.copyInvite();
    const Instant fairest = world.store.instant(world.store.fairestCol());
    EXPECT_EQ(world.pasteboard.text, world.store.emailText(fairest));

    world.store.propose(15);
    world.store.setDuration(45);
    world.copying.copyInvite();
    EXPECT_EQ(world.pasteboard.text, world.store.emailText(world.store.instant(15)));
    EXPECT_EQ(world.store.flash(), "Copied 15:00–15:45 for 3 places — paste it into the email");
    world.store.toggleHidden(world.store.rows().at(1));
    world.copying.copyInvite();
    EXPECT_EQ(world.store.flash(), "Copied 15:00–15:45 for 2 places — paste it into the email");
}

TEST(Copying, ThePictureLooksAsThePanelDoes) {
    Copies world;
    const auto pictured = [&](Scheme scheme) {
        world.scheme = scheme;
        world.copying.copyPicture();
        EXPECT_EQ(world.pasteboard.text, std::nullopt);
        return QImage::fromData(world.pasteboard.png.value_or(QByteArray()), "PNG");
    };
    const QImage dark = pictured(Scheme::dark);
    const RibbonPanel panel(world.store, world.ui, {.solid = true, .hints = false});
    const kit::Placed placed = kit::layOut(panel.body(Scheme::dark), rootEnvironment());
    EXPECT_EQ(dark.width(), 2392);
    EXPECT_EQ(dark.height(), 2 * placed.rect.height());
    EXPECT_EQ(dark.pixelColor(60, 200), QColor(0x08, 0x1E, 0x32));
    EXPECT_EQ(pictured(Scheme::light).pixelColor(60, 200), QColor(0xF5, 0xF8, 0xFB));
    EXPECT_EQ(world.store.flash(), pictureCopied);
    world.copying.copyText();
    EXPECT_EQ(world.pasteboard.png, std::nullopt);
}

TEST(Copying, EachMessageHasItsFullTime) {
    struct Case {
        const char* name;
        void (Copying::*second)();
        const char* message;
    };
    for (const auto& [name, second, message] :
         {Case{"another", &Copying::copyPicture, pictureCopied},
          Case{"the same again", &Copying::copyText, textCopied}}) {
        Copies world;
        world.copying.copyText();
        world.advance(2499);
        EXPECT_EQ(world.store.flash(), textCopied);
        (world.copying.*second)();
        world.advance(2499);
        EXPECT_EQ(world.store.flash(), message) << name;
        world.advance(1);
        EXPECT_EQ(world.store.flash(), std::nullopt) << name;
    }
    Copies world;
    world.copying.copyText();
    world.store.flash = "Something else";
    world.advance(3000);
    EXPECT_EQ(world.store.flash(), "Something else");
    world.copying.flash(std::nullopt);
    EXPECT_EQ(world.store.flash(), std::nullopt);
}

TEST(Copying, GoneItLeavesTheMessage) {
    ShellWorld world;
    FakePasteboard pasteboard;
    {
        Copying copying(world.store, world.ui, pasteboard, world.queue,
                        [] { return Scheme::dark; });
        copying.copyText();
    }
    world.advance(3000);
    EXPECT_EQ(world.store.flash(), textCopied);
}

}  // namespace
}  // namespace noonward::test
