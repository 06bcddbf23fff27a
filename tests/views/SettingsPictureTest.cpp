#include <gtest/gtest.h>

#include "kit/OffScreen.h"
#include "views/Picture.h"
#include "views/SettingsScene.h"

// Reads the painted settings back and compares them with what they should be, worked out here in
// numbers of its own, in points.

namespace noonward::test {
namespace {

constexpr Rgb white = hex(0xFFFFFF);
constexpr Rgb navy = hex(0x004165);
constexpr Rgb red = hex(0xAA272F);

struct Theme {
    Rgb tint, chip, button, mist, fair, home, off;
};

Theme theme(Scheme scheme) {
    if (scheme == Scheme::dark) {
        const Rgb tint = hex(0x081E32);
        return {
            tint,          over(white, 0.1, tint), over(hex(0x0094B3), 0.7, tint), hex(0xC3D0DC),
            hex(0x3EC5E4), hex(0xFF6D22),          over(white, 0.18, tint)};
    }
    const Rgb tint = hex(0xF5F8FB);
    return {tint,          over(navy, 0.05, tint), hex(0x007C97),         hex(0x5A6270),
            hex(0x0094B3), hex(0xD9531E),          over(navy, 0.12, tint)};
}

constexpr double left = 28;
constexpr double boxBottom = 6 + 540;
constexpr double columns = 6 + 30 + 34 + 22;   // below the stripe, the margin and the header
constexpr double firstRow = columns + 17 + 8;  // below the caption
double row(int index) {
    return firstRow + 60 * index;
}
// A button of 26 in the middle of a row.
QRectF button(double x, int index) {
    return {x - 13, row(index) + 13, 26, 26};
}

struct Painted {
    Painted(const Config& config, const SettingsView::Options& options, Scheme wanted)
        : scene(config, options), scheme(wanted), picture(paint()) {}

    QImage paint() const {
        kit::Tiles tiles;
        return kit::paintOffScreen(kit::layOut(scene.view.body(scheme), rootEnvironment()), 2,
                                   tiles);
    }
    /// The capsule at the end of a switch.
    QRectF capsule(const char* name) const {
        const QRectF all = scene.buttons(name).at(0).rect;
        return {all.right() - 26, all.center().y() - 7.5, 26, 15};
    }

    SettingsScene scene;
    Scheme scheme;
    Picture picture;
};

class SettingsPicture : public testing::TestWithParam<Scheme> {};
INSTANTIATE_TEST_SUITE_P(Schemes, SettingsPicture, testing::Values(Scheme::dark, Scheme::light));

TEST_P(SettingsPicture, OfTheList) {
    const Theme colours = theme(GetParam());
    const Painted painted(threePlaces(), {}, GetParam());
    const Picture& picture = painted.picture;
    EXPECT_EQ(picture.width(), 1196);
    EXPECT_EQ(picture.height(), boxBottom);
    for (int i = 0; i < 3; ++i) {
        const bool isHome = i == 0;
        EXPECT_TRUE(picture.is(left + 4, row(i) + 26, colours.chip));
        EXPECT_TRUE(picture.is(left + 560 - 4, row(i) + 26, colours.chip));
        EXPECT_TRUE(picture.is(left + 560 + 4, row(i) + 26, colours.tint));
        EXPECT_TRUE(picture.is(left + 0.5, row(i) + 0.5, colours.tint)) << "a rounded corner";
        EXPECT_TRUE(picture.is(300, row(i) + 52 + 4, colours.tint)) << "between rows";
        const bool isFavourite = i != 1;
        EXPECT_EQ(picture.is(53, row(i) + 26, isFavourite ? colours.fair : colours.chip), true)
            << i;
        EXPECT_EQ(picture.has(colours.mist, button(53, i)), !isFavourite) << i;
        EXPECT_EQ(picture.has(colours.home, button(89, i)), isHome) << i;
        EXPECT_EQ(picture.has(red, button(563, i)), !isHome) << "home's is dimmed";
    }
    EXPECT_TRUE(picture.is(300, row(3) + 2, colours.tint));
    EXPECT_TRUE(picture.has(colours.fair, {left + 560 + 28, columns, 16, 16})) << "the legend";
}

TEST_P(SettingsPicture, OfSwitchesAndChoices) {
    const Theme colours = theme(GetParam());
    Config config = threePlaces();
    config.rolling = true;
    config.appearance = "light";
    const Painted painted(config, {}, GetParam());
    const Picture& picture = painted.picture;
    const QRectF on = painted.capsule("Keep now in the middle");
    const QRectF off = painted.capsule("Open at login");
    EXPECT_TRUE(picture.is(on.right() - 7.5, on.center().y(), white));
    EXPECT_TRUE(picture.is(on.left() + 7.5, on.center().y(), colours.button));
    EXPECT_TRUE(picture.is(off.left() + 7.5, off.center().y(), white));
    EXPECT_TRUE(picture.is(off.right() - 7.5, off.center().y(), colours.off));
    EXPECT_TRUE(picture.is(on.left() + 0.25, on.top() + 0.25, colours.tint));
    for (const char* choice : {"Match Mac", "Light", "Dark"}) {
        const QRectF rect = painted.scene.buttons(choice).at(0).rect;
        const bool selected = std::string(choice) == "Light";
        // The filled segment stands on the picker's ground.
        const Rgb filled =
            GetParam() == Scheme::dark ? over(hex(0x0094B3), 0.7, colours.chip) : colours.button;
        EXPECT_TRUE(
            picture.is(rect.left() + 3, rect.center().y(), selected ? filled : colours.chip))
            << choice;
    }
}

TEST_P(SettingsPicture, OfAnOpenWeek) {
    const Theme colours = theme(GetParam());
    const Painted painted(threePlaces(), {.editing = 1}, GetParam());
    const Picture& picture = painted.picture;
    EXPECT_FALSE(picture.is(left + 4, row(1) + 26, colours.chip)) << "the edited row stands out";
    EXPECT_TRUE(picture.is(left + 4, row(0) + 26, colours.chip));
    const double days = row(1) + 52 + 8 + 2 + 17 + 10 + 26 + 10;
    for (int day = 0; day < 7; ++day) {
        const double x = left + 12 + 64 + 10 + 32 * day;
        EXPECT_TRUE(picture.is(x + 3, days + 14, day < 5 ? colours.button : colours.chip)) << day;
        EXPECT_TRUE(picture.is(x + 30, days + 14, colours.tint)) << day;
    }
}

TEST_P(SettingsPicture, OfWhatASearchFinds) {
    const Theme colours = theme(GetParam());
    const Painted painted(threePlaces(), {.query = "tokyo"}, GetParam());
    const double field = row(3) - 8 + 8 + 17 + 8;
    EXPECT_TRUE(painted.picture.is(left + 4, field + 18, colours.chip));
    for (const char* name : {"Tokyo", "Not in the list"}) {
        const QRectF result = painted.scene.buttons(name).at(0).rect;
        EXPECT_TRUE(
            painted.picture.has(colours.fair, {left + 12, result.top(), 18, result.height()}));
    }
}

// However much there is, nothing is painted above the column, nor beside it.
TEST_P(SettingsPicture, OfMoreThanFits) {
    const Theme colours = theme(GetParam());
    const Config six = places(6);
    for (const auto& options : {SettingsView::Options{.editing = 5}, SettingsView::Options{}}) {
        const Painted painted(six, options, GetParam());
        for (double x = left; x < left + 560; x += 0.5)
            ASSERT_TRUE(painted.picture.is(x, columns - 1, colours.tint)) << x;
        EXPECT_FALSE(painted.picture.is(left + 0.25, boxBottom - 30, colours.tint));
    }
    Config long10k = threePlaces();
    for (Place& place : long10k.places)
        place.label = std::string(10'000, 'W');
    const Painted painted(long10k, {.editing = 2}, GetParam());
    for (double y = columns; y < boxBottom - 18; y += 0.5)
        ASSERT_TRUE(painted.picture.is(left + 560 + 1, y, colours.tint)) << y;
    EXPECT_TRUE(painted.picture.has(colours.mist, button(89, 1)))
        << "its buttons are where they were";
}

}  // namespace
}  // namespace noonward::test
