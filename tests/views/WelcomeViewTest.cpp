#include "views/welcome/WelcomeView.h"

#include <gtest/gtest.h>

#include <cmath>

#include "app/Render.h"
#include "fakes/StoreWorld.h"
#include "kit/Description.h"
#include "kit/OffScreen.h"
#include "views/Finding.h"
#include "views/NotchUI.h"
#include "views/Picture.h"

// Positions and colours read back from the welcome, against numbers worked out here.

namespace noonward::test {
namespace {

struct Welcome {
    kit::Placed placed() const { return kit::layOut(view.body(scheme), rootEnvironment()); }

    Scheme scheme = Scheme::dark;
    StoreWorld world{"Europe/London", "2026-03-18 09:30", threePlaces()};
    Store store{world.services()};
    NotchUI ui;
    std::vector<bool> done;
    WelcomeView view{store, ui, [this](bool choosePlaces) { done.push_back(choosePlaces); }};
};

double lineHeight(double size) {
    return kit::metrics({"Hanken Grotesk", size}).lineHeight;
}

// Tops and heights from the top down, in points.
struct Design {
    double title = 6 + 32;
    double tagline = title + lineHeight(30) + 4;
    double step = tagline + lineHeight(16) + 22;  // the first of three
    double stepHeight = lineHeight(16) + 3 + 2 * lineHeight(14);
    double note = step + 3 * (stepHeight + 22);
    double buttons = note + 2 * lineHeight(13) + 22;
    double buttonHeight = lineHeight(14) + 2 * 8;
    double height = buttons + buttonHeight + 32;
};

const kit::Placed* textStarting(const kit::Placed& root, const std::string& start) {
    return kit::find(root, [&](const kit::Placed& placed) {
        return placed.node->description().rfind("text \"" + start, 0) == 0;
    });
}

TEST(WelcomeView, PutsEverythingWhereItBelongs) {
    const Welcome welcome;
    const kit::Placed root = welcome.placed();
    const Design design;
    EXPECT_EQ(root.rect, QRectF(0, 0, 620, design.height)) << kit::dump(root);

    struct Line {
        const char* start;
        QPointF at;
        double size;
    };
    const auto ofStep = [&](int which) { return design.step + which * (design.stepHeight + 22); };
    const double words = lineHeight(16) + 3;  // below a step's title
    for (const Line& line : {
             Line{"Noonward", {32, design.title}, 30},
             {"The time elsewhere, tucked into your notch.", {32, design.tagline}, 16},
             {"Rest your pointer on the notch", {76, ofStep(0)}, 16},
             {"Two of your places appear either side of the camera.", {76, ofStep(0) + words}, 14},
             {"Click it, or press ⌃⌥T", {76, ofStep(1)}, 16},
             {"Every place as a 24-hour strip, lined up", {76, ofStep(1) + words}, 14},
             {"Propose a time", {76, ofStep(2)}, 16},
             {"Click an hour, nudge it five minutes", {76, ofStep(2) + words}, 14},
             {"Right-click the notch for Places", {32, design.note}, 13},
         }) {
        const kit::Placed* text = textStarting(root, line.start);
        ASSERT_NE(text, nullptr) << line.start << '\n' << kit::dump(root);
        EXPECT_EQ(text->rect.topLeft(), line.at) << line.start;
        EXPECT_EQ(text->rect.height(), lineHeight(line.size)) << line.start;
        EXPECT_LE(text->rect.right(), 588) << line.start;
    }
    const kit::Placed* choose = buttonSaying(root, "Choose my places");
    const kit::Placed* gotIt = buttonSaying(root, "Got it");
    ASSERT_TRUE(choose && gotIt);
    EXPECT_EQ(gotIt->rect.bottomRight(), QPointF(588, design.height - 32));
    EXPECT_EQ(gotIt->rect.height(), design.buttonHeight);
    EXPECT_EQ(choose->rect.right(), gotIt->rect.left() - 12);
    EXPECT_EQ(choose->rect.height(), design.buttonHeight);
}

// Its texts as a screen reader tells them, each whole however its lines are broken.
TEST(WelcomeView, SaysItWordForWord) {
    std::vector<std::string> said;
    for (const kit::Element& element : kit::elements(Welcome().placed()))
        said.push_back(element.name);
    const std::vector<std::string> expected = {
        "Noonward",
        "The time elsewhere, tucked into your notch.",
        "Rest your pointer on the notch",
        "Two of your places appear either side of the camera. Move away and they fold back.",
        "Click it, or press ⌃⌥T",
        "Every place as a 24-hour strip, lined up on the same moment, with the fairest hour for a "
        "meeting outlined.",
        "Propose a time",
        "Click an hour, nudge it five minutes at a time, or type “7:30am NY tue”. Then copy it for "
        "an email.",
        "Right-click the notch for Places & appearance. Noonward opens when you log in; you can "
        "switch that off there.",
        "Choose my places",
        "Got it",
    };
    EXPECT_EQ(said, expected);
}

constexpr Rgb white = hex(0xFFFFFF);
constexpr double rounded = 2;  // where one colour lies over another, each of the two is

struct Colours {
    Rgb tint, chip, outline, button, symbol, mist;
};

Colours coloursOf(Scheme scheme) {
    const Rgb navy = hex(0x004165);
    const Rgb teal = hex(0x0094B3);
    if (scheme == Scheme::dark) {
        const Rgb tint = hex(0x081E32);
        const Rgb chip = over(white, 0.1, tint);
        return {tint,          chip,         over(white, 0.18, chip), over(teal, 0.7, tint),
                hex(0x3EC5E4), hex(0xC3D0DC)};
    }
    const Rgb tint = hex(0xF5F8FB);
    const Rgb chip = over(navy, 0.05, tint);
    return {tint, chip, over(navy, 0.12, chip), hex(0x007C97), teal, hex(0x5A6270)};
}

Picture pictureOf(const Welcome& welcome) {
    kit::Tiles tiles;
    return Picture(kit::paintOffScreen(welcome.placed(), 2, tiles));
}

TEST(WelcomeView, IsPaintedInItsColours) {
    const Design design;
    for (const Scheme scheme : {Scheme::dark, Scheme::light}) {
        const Welcome welcome{.scheme = scheme};
        const Colours colours = coloursOf(scheme);
        const Picture picture = pictureOf(welcome);
        EXPECT_TRUE(picture.is(10, design.height / 2, colours.tint, rounded));
        // It hangs: square above, round below.
        EXPECT_EQ(picture.alpha(0.5, 0.5), 255);
        EXPECT_EQ(picture.alpha(0.5, design.height - 0.5), 0);

        for (int step = 0; step < 3; ++step) {
            const double top = design.step + step * (design.stepHeight + 22);
            EXPECT_TRUE(picture.is(32.5, top + 0.5, colours.tint, rounded)) << "a rounded corner";
            EXPECT_TRUE(picture.is(33.5, top + 15, colours.chip, rounded));
            EXPECT_TRUE(picture.is(60.5, top + 15, colours.chip, rounded));
            EXPECT_TRUE(picture.is(63, top + 15, colours.tint, rounded));
            EXPECT_TRUE(picture.is(47, top + 31, colours.tint, rounded));
            EXPECT_TRUE(picture.has(colours.symbol, {38, top + 6, 18, 18})) << step;
            EXPECT_TRUE(
                picture.has(colours.mist, {76, top + lineHeight(16) + 3, 200, lineHeight(14)}));
        }
        const kit::Placed root = welcome.placed();
        const QRectF choose = buttonSaying(root, "Choose my places")->rect;
        const QRectF gotIt = buttonSaying(root, "Got it")->rect;
        const double middle = choose.center().y();
        EXPECT_TRUE(picture.is(choose.center().x(), choose.top() + 0.25, colours.outline, rounded));
        EXPECT_TRUE(picture.is(choose.left() + 0.25, middle, colours.outline, rounded));
        EXPECT_TRUE(picture.is(choose.left() + 2, middle, colours.chip, rounded));
        EXPECT_TRUE(picture.is(choose.left() + 0.5, choose.top() + 0.5, colours.tint, rounded));
        EXPECT_TRUE(picture.is(gotIt.left() + 2, middle, colours.button, rounded));
        EXPECT_TRUE(picture.is(gotIt.center().x(), gotIt.top() + 0.5, colours.button, rounded));
        EXPECT_TRUE(picture.is(gotIt.right() - 0.5, gotIt.top() + 0.5, colours.tint, rounded));
        EXPECT_TRUE(picture.has(white, gotIt));
    }
}

TEST(WelcomeView, HasTwoWaysOut) {
    Welcome welcome;
    const kit::Placed root = welcome.placed();
    buttonSaying(root, "Choose my places")->node->interaction()->press();
    buttonSaying(root, "Got it")->node->interaction()->press();
    EXPECT_EQ(welcome.done, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace noonward::test
