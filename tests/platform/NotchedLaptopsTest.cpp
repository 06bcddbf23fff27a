#include "platform/linux/NotchedLaptops.h"

#include <gtest/gtest.h>

#include "app/Notch.h"
#include "support/TempFolder.h"

namespace noonward::test {
namespace {

using namespace std::string_literals;

TEST(NotchedLaptopsTest, AreKnownByWhatTheComputerSaysItIs) {
    struct Case {
        std::string tree;
        std::string product;
        int width;  // of the display; 0 for none
    };
    const Case cases[] = {{"", "", 0},
                          {"apple,j314s\0apple,t6000\0apple,arm-platform\0"s, "", 3024},
                          {"apple,j416c\0apple,t6021\0"s, "", 3456},
                          {"apple,j413\0apple,t8112\0"s, "", 2560},
                          {"apple,j415\0"s, "", 2880},
                          {"apple,j415"s, "", 2880},
                          {"apple,j493\0apple,t8112\0"s, "", 0},
                          {"apple,j314\0apple,arm-platform\0"s, "", 0},
                          {"apple,j314s,apple,t6000"s, "", 0},
                          {"\0\0\0"s, "", 0},
                          {std::string(100'000, 'a'), "Mac14,2\n", 2560},
                          {"", "MacBookPro18,3\n", 3024},
                          {"", "MacBookPro17,1\n", 0},
                          {"", "20XW\n", 0}};
    for (const Case& each : cases) {
        const TempFolder root;
        writeText(root / "sys/firmware/devicetree/base/compatible", each.tree);
        writeText(root / "sys/class/dmi/id/product_name", each.product);
        const auto display = notchedDisplay(root.path());
        EXPECT_EQ(display ? display->size.width() : 0, each.width)
            << each.tree.substr(0, 40) << ' ' << each.product;
    }
    const TempFolder empty;
    EXPECT_FALSE(notchedDisplay(empty.path()));
}

TEST(NotchedLaptopsTest, OnlyTheWholeBuiltInDisplayHasTheNotch) {
    const NotchedDisplay display{{3024, 1964}, 74, 372};
    struct Case {
        QString connector;
        QRectF frame;
        std::optional<QRectF> notch;
    };
    const Case cases[] = {
        {"eDP-1", {0, 0, 3024, 1964}, QRectF(1326, 0, 372, 74)},
        {"eDP-1", {0, 0, 1512, 982}, QRectF(663, 0, 186, 37)},
        {"DSI-1", {1920, 300, 1512, 982}, QRectF(2583, 300, 186, 37)},
        {"eDP-1", {-1512, 0, 1512, 982}, QRectF(-849, 0, 186, 37)},
        {"eDP1", {100, 0, 2016, 1309}, QRectF(984, 0, 248, 37 * 4 / 3.0)},
        {"eDP-1", {0, 0, 3024, 1890}, {}},  // without the strip
        {"eDP-1", {0, 0, 1964, 3024}, {}},  // turned
        {"eDP-1", {0, 0, 1920, 1080}, {}},  // another mode
        {"HDMI-1", {0, 0, 3024, 1964}, {}},
        {"", {0, 0, 3024, 1964}, {}},
        {"eDP-1", {}, {}},
    };
    for (const Case& each : cases) {
        Screen screen{.frame = each.frame};
        enterNotch(screen, each.connector, display);
        EXPECT_EQ(screen.topInset > 0, each.notch.has_value());
        EXPECT_EQ(screen.auxiliaryTopLeft.has_value(), each.notch.has_value());
        if (!each.notch) continue;
        EXPECT_EQ(findNotch({screen}, screen, 0)->rect, *each.notch) << each.frame.x();
    }
}

}  // namespace
}  // namespace noonward::test
