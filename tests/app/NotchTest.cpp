#include <gtest/gtest.h>

#include "app/Notch.h"

namespace noonward::test {
namespace {

Screen builtIn(QRectF frame, QRectF left, QRectF right) {
    return {.frame = frame, .topInset = 32, .auxiliaryTopLeft = left, .auxiliaryTopRight = right};
}

const Screen external{.frame = {0, 0, 2560, 1440}};

struct Case {
    const char* name;
    std::vector<Screen> screens;  // the first is the main one
    double statusBar = 0;
    std::optional<Notch> expected;
};

class FindNotch : public testing::TestWithParam<Case> {};

TEST_P(FindNotch, IsWhereTheCameraIs) {
    const auto& [name, screens, statusBar, expected] = GetParam();
    const auto main = screens.empty() ? std::nullopt : std::optional(screens.front());
    const auto found = findNotch(screens, main, statusBar);
    ASSERT_EQ(found.has_value(), expected.has_value());
    if (!expected) return;
    EXPECT_EQ(found->rect, expected->rect);
    EXPECT_EQ(found->screen, expected->screen);
}

const QRectF first{0, 0, 1512, 982};
const QRectF right{2560, 400, 1512, 982};
const QRectF leftOf{-1512, 0, 1512, 982};

INSTANTIATE_TEST_SUITE_P(
    Desktops, FindNotch,
    testing::Values(
        Case{"Alone",
             {builtIn(first, {0, 0, 664, 32}, {849, 0, 663, 32})},
             0,
             Notch{{664, 0, 185, 32}, first}},
        Case{"RightOfAnotherInItsOwnCoordinates",
             {external, builtIn(right, {0, 0, 664, 32}, {849, 0, 663, 32})},
             0,
             Notch{{3224, 400, 185, 32}, right}},
        Case{"RightOfAnotherInDesktopCoordinates",
             {external, builtIn(right, {2560, 400, 664, 32}, {3409, 400, 663, 32})},
             0,
             Notch{{3224, 400, 185, 32}, right}},
        Case{"LeftOfAnotherInItsOwnCoordinates",
             {external, builtIn(leftOf, {0, 0, 664, 32}, {849, 0, 663, 32})},
             0,
             Notch{{-848, 0, 185, 32}, leftOf}},
        // Its strip lies within the screen's width either way.
        Case{"SlightlyToTheRightItsOwnAreTaken",
             {builtIn({300, 0, 1512, 982}, {400, 0, 264, 32}, {849, 0, 663, 32})},
             0,
             Notch{{964, 0, 185, 32}, {300, 0, 1512, 982}}},
        Case{"TheFirstOfTwoWithANotch",
             {builtIn(first, {0, 0, 664, 32}, {849, 0, 663, 32}),
              builtIn(right, {0, 0, 600, 32}, {900, 0, 612, 32})},
             0,
             Notch{{664, 0, 185, 32}, first}},
        Case{
            "WithoutStripsTheMainScreenStandsIn",
            {external, {.frame = right, .topInset = 32, .auxiliaryTopLeft = QRectF(0, 0, 664, 32)}},
            30,
            Notch{{1188, 0, 184, 30}, external.frame}},
        Case{"ThinStatusBar", {external}, 20, Notch{{1188, 0, 184, 24}, external.frame}},
        Case{"ThickStatusBar", {external}, 37, Notch{{1188, 0, 184, 37}, external.frame}},
        Case{"MainScreenLowerDown",
             {{.frame = {0, 600, 1280, 800}}},
             0,
             Notch{{548, 600, 184, 24}, {0, 600, 1280, 800}}},
        Case{"NoScreens", {}, 30, std::nullopt}),
    [](const auto& tested) { return tested.param.name; });

TEST(NotchZones, EndWhereTheyShould) {
    const QRectF notch(868, 0, 184, 24);
    struct Edge {
        QRectF zone;
        QPointF inside, outside;
    };
    for (const auto& [zone, inside, outside] : {Edge{hoverZone(notch), {860, 10}, {859.9, 10}},
                                                Edge{hoverZone(notch), {1059.9, 10}, {1060, 10}},
                                                Edge{hoverZone(notch), {900, 25.9}, {900, 26}},
                                                Edge{hoverZone(notch, true), {900, 1.9}, {900, 2}},
                                                Edge{hoverZone(notch), {900, -6}, {900, -6.1}},
                                                Edge{stayZone(notch), {852, 10}, {851.9, 10}},
                                                Edge{stayZone(notch), {1067.9, 10}, {1068, 10}},
                                                Edge{stayZone(notch), {900, 39.9}, {900, 40}}}) {
        EXPECT_TRUE(holds(zone, inside)) << inside.x() << ' ' << inside.y();
        EXPECT_FALSE(holds(zone, outside)) << outside.x() << ' ' << outside.y();
    }
    EXPECT_FALSE(holds(notch, std::nullopt));
}

}  // namespace
}  // namespace noonward::test
