#include "platform/x11/X11PressesElsewhere.h"

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

/// Counts the presses elsewhere.
class Listener {
 public:
    Listener() { listen(); }

    void listen() {
        heard_ = presses.onPress([this] { ++count; });
        sync(*x11);
    }
    void stop() {
        heard_.reset();
        sync(*x11);
    }
    /// How many are heard while a button is clicked in one place and the pointer goes to another,
    /// all before this program looks.
    int click(QPoint at, std::uint8_t button, QPoint then) {
        count = 0;
        notes_ = 0;
        other.movePointer(at);
        other.click(button);
        other.movePointer(then);
        // The verdict comes with a note, which only left and right buttons cause.
        const bool noted = button == XCB_BUTTON_INDEX_1 || button == XCB_BUTTON_INDEX_3;
        EXPECT_TRUE(eventually([&] { return !noted || notes_ > 0; }));
        QCoreApplication::processEvents();
        return count;
    }

    OtherClient other;
    std::unique_ptr<X11> x11 = X11::connect();
    X11PressesElsewhere presses{*x11};
    int count = 0;

 private:
    int notes_ = 0;
    Subscription heard_;
    Subscription notesSeen_ =
        x11->onEvent([this](const xcb_generic_event_t& event, std::uint8_t type) {
            notes_ += type == XCB_CLIENT_MESSAGE &&
                      as<xcb_client_message_event_t>(event).type == x11->atom("_NOONWARD_PRESS");
        });
};

TEST(X11PressesElsewhereTest, HearsLeftAndRightOutsideOfAllItsWindows) {
    Listener listener;
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    window.setGeometry(ours);
    window.show();
    listener.other.show(theirs);
    sync(*listener.x11);

    struct Case {
        QPoint at;
        std::uint8_t button;
        int heard;
    };
    for (const Case& each :
         {Case{theirs.center(), 1, 1}, Case{theirs.center(), 2, 0}, Case{theirs.center(), 3, 1},
          Case{theirs.center(), 4, 0}, Case{desktop, 1, 1}, Case{ours.center(), 1, 0},
          Case{ours.topLeft(), 3, 0}, Case{ours.topLeft() - QPoint(1, 0), 1, 1}}) {
        EXPECT_EQ(listener.click(each.at, each.button, each.at), each.heard)
            << each.at.x() << ' ' << int{each.button};
    }

    listener.stop();
    listener.count = 0;
    listener.other.click(XCB_BUTTON_INDEX_1);
    listener.listen();
    EXPECT_EQ(listener.click(desktop, XCB_BUTTON_INDEX_1, desktop), 1);
}

// The hand is faster than this program, which is busy until the pointer is elsewhere.
TEST(X11PressesElsewhereTest, APressBelongsToWhereItWasThoughThePointerHasLeft) {
    Listener listener;
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    window.setGeometry(ours);
    window.show();
    sync(*listener.x11);
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(listener.click(ours.center(), XCB_BUTTON_INDEX_1, desktop), 0);
        EXPECT_EQ(listener.click(desktop, XCB_BUTTON_INDEX_1, ours.center()), 1);
    }
}

TEST(X11PressesElsewhereTest, MenusAreItsOwn) {
    Listener listener;
    QMenu menu;
    bool chosen = false;
    QObject::connect(menu.addAction("Quit"), &QAction::triggered, [&] { chosen = true; });
    menu.popup({300, 300});
    ASSERT_TRUE(eventually(
        [&] { return menu.isVisible() && listener.x11->isOurs(listener.other.stack().back()); }));
    EXPECT_EQ(listener.click(menu.geometry().center(), XCB_BUTTON_INDEX_1, desktop), 0);
    EXPECT_TRUE(eventually([&] { return chosen; }));
}

}  // namespace
}  // namespace noonward::test
