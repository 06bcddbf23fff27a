#include "platform/linux/X11PressesElsewhere.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QWidget>

#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

constexpr QRect ours{100, 100, 200, 100};
constexpr QRect theirs{500, 100, 200, 100};
constexpr QPoint desktop{900, 600};

// A press has been read, then the note about it, then the verdict handed on.
void settle(const X11& x11) {
    for (int step = 0; step < 3; ++step) {
        sync(x11);
        QCoreApplication::processEvents();
    }
}

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
        other.movePointer(each.at);
        other.click(each.button);
        settle(*x11);
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

// The hand is faster than this program, which is busy until the pointer is elsewhere.
TEST(X11PressesElsewhereTest, APressBelongsToWhereItWasThoughThePointerHasLeft) {
    OtherClient other;
    const auto x11 = X11::connect();
    X11PressesElsewhere presses(*x11);
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    window.setGeometry(ours);
    window.show();
    int count = 0;
    const auto heard = presses.onPress([&] { ++count; });
    sync(*x11);
    const auto press = [&](QPoint at, QPoint then) {
        count = 0;
        other.movePointer(at);
        other.click(XCB_BUTTON_INDEX_1);
        other.movePointer(then);
        settle(*x11);
        return count;
    };
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(press(ours.center(), desktop), 0);
        EXPECT_EQ(press(desktop, ours.center()), 1);
    }
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
    settle(*x11);
    EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace noonward::test
