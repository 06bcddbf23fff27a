#include "platform/linux/X11PressesElsewhere.h"

#include <gtest/gtest.h>
#include <xcb/xinput.h>

#include <QMenu>
#include <QWidget>

#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

constexpr QRect ours{100, 100, 200, 100};
constexpr QRect theirs{500, 100, 200, 100};
constexpr QPoint desktop{900, 600};

TEST(X11PressesElsewhereTest, HearsLeftAndRightOutsideOfAllItsWindows) {
    OtherClient other;
    const auto x11 = X11::connect();
    X11PressesElsewhere presses(*x11);
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    window.setGeometry(ours);
    window.show();
    other.show(theirs);
    int count = 0;
    auto heard = presses.onPress([&] { ++count; });
    int judged = 0;  // told after `presses`, which came first
    const auto seen = x11->onEvent([&](const xcb_generic_event_t& event, std::uint8_t type) {
        judged += type == XCB_GE_GENERIC &&
                  as<xcb_ge_generic_event_t>(event).event_type == XCB_INPUT_RAW_BUTTON_PRESS;
    });
    sync(*x11);

    struct Case {
        QPoint at;
        std::uint8_t button;
        int heard;
    };
    for (const Case& each :
         {Case{theirs.center(), 1, 1}, Case{theirs.center(), 2, 0}, Case{theirs.center(), 3, 1},
          Case{theirs.center(), 4, 0}, Case{desktop, 1, 1}, Case{ours.center(), 1, 0},
          Case{ours.topLeft(), 3, 0}, Case{ours.topLeft() - QPoint(1, 0), 1, 1}}) {
        count = 0;
        judged = 0;
        other.movePointer(each.at);
        other.click(each.button);
        EXPECT_TRUE(eventually([&] { return judged > 0; }));
        QCoreApplication::processEvents();
        EXPECT_EQ(count, each.heard) << each.at.x() << ' ' << int{each.button};
    }

    heard.reset();
    sync(*x11);
    count = 0;
    other.click(XCB_BUTTON_INDEX_1);
    const auto again = presses.onPress([&] { ++count; });
    sync(*x11);
    other.click(XCB_BUTTON_INDEX_1);
    EXPECT_TRUE(eventually([&] { return count > 0; }));
    EXPECT_EQ(count, 1);
}

TEST(X11PressesElsewhereTest, MenusAreItsOwn) {
    OtherClient other;
    const auto x11 = X11::connect();
    X11PressesElsewhere presses(*x11);
    int count = 0;
    const auto heard = presses.onPress([&] { ++count; });
    QMenu menu;
    bool chosen = false;
    QObject::connect(menu.addAction("Quit"), &QAction::triggered, [&] { chosen = true; });
    menu.popup({300, 300});
    sync(*x11);
    ASSERT_TRUE(eventually([&] { return menu.isVisible() && x11->isOurs(other.stack().back()); }));
    other.movePointer(menu.geometry().center());
    QCoreApplication::processEvents();
    other.click(XCB_BUTTON_INDEX_1);
    EXPECT_TRUE(eventually([&] { return chosen; }));
    EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace noonward::test
