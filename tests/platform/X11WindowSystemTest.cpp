#include "platform/x11/X11WindowSystem.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QWidget>
#include <algorithm>
#include <functional>

#include "platform/x11/X11PressesElsewhere.h"
#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

constexpr QRect where{300, 100, 200, 150};

xcb_window_t idOf(const QWidget& widget) {
    return static_cast<xcb_window_t>(widget.internalWinId());
}

class X11WindowSystemTest : public testing::Test {
 protected:
    explicit X11WindowSystemTest(bool insideWayland = false) : x11(X11::connect(insideWayland)) {}

    void SetUp() override {
        other.movePointer({5, 700});
        windows.adopt(panel, WindowSystem::Level::panel);
        windows.adopt(cap, WindowSystem::Level::cap);
        for (QWidget* each : {&panel, &cap})
            each->setGeometry(where);
    }

    void show(QWidget& window) {
        window.show();
        windows.raise(window);
        sync(*x11);
    }

    /// Whether, from back to front, the windows come in this order.
    bool areInOrder(const std::vector<xcb_window_t>& wanted) {
        const auto children = other.stack();
        auto from = children.begin();
        for (const xcb_window_t window : wanted) {
            from = std::find(from, children.end(), window);
            if (from == children.end()) return false;
        }
        return true;
    }

    /// Does something in another program, and all that the event it makes here asks for at once.
    void answer(const std::function<bool(const xcb_generic_event_t&, std::uint8_t)>& isIt,
                const std::function<void()>& act) {
        bool seen = false;
        const auto watch = x11->onEvent([&](const xcb_generic_event_t& event, std::uint8_t type) {
            seen = seen || isIt(event, type);
        });
        act();
        EXPECT_TRUE(eventually([&] { return seen; }));
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents();
        sync(*x11);
    }

    bool hasKeys(xcb_window_t window) {
        return eventually([&] { return other.focused() == window; });
    }

    OtherClient other;
    std::unique_ptr<X11> x11;
    X11Stack stack{*x11};
    X11PressesElsewhere presses{*x11};
    X11WindowSystem windows{*x11, stack, presses};
    QWidget panel;
    QWidget cap;
};

class X11WindowSystemInsideWaylandTest : public X11WindowSystemTest {
 protected:
    X11WindowSystemInsideWaylandTest() : X11WindowSystemTest(true) {}
};

TEST_F(X11WindowSystemTest, KeepsOursInFrontAndInOrder) {
    show(cap);
    show(panel);
    EXPECT_TRUE(areInOrder({idOf(panel), idOf(cap)}));

    const xcb_window_t ordinary = other.show(where);
    EXPECT_TRUE(eventually([&] { return areInOrder({ordinary, idOf(panel), idOf(cap)}); }));
    other.show(where);
    const xcb_window_t notice = other.show(where, 0, true);
    other.raise(ordinary);
    EXPECT_TRUE(eventually([&] { return areInOrder({ordinary, idOf(panel), idOf(cap)}); }));

    QMenu menu;
    menu.addAction("Quit");
    menu.popup(where.center());
    windows.raise(panel);
    EXPECT_TRUE(eventually([&] {
        return areInOrder({notice, idOf(panel), idOf(cap), idOf(menu)});
    }));
    other.raise(ordinary);
    EXPECT_TRUE(eventually([&] {
        return areInOrder({ordinary, idOf(panel), idOf(cap), idOf(menu)});
    }));
}

TEST_F(X11WindowSystemTest, LeavesWhatOthersPutInFrontOnPurpose) {
    show(panel);
    const xcb_window_t notice = other.show(where, 0, true);
    const xcb_window_t ordinary = other.show(where);
    EXPECT_TRUE(eventually([&] { return areInOrder({notice, ordinary, idOf(panel)}); }));
    other.raise(notice);
    const xcb_window_t next = other.show({0, 0, 50, 50});
    const xcb_window_t last = other.show({0, 0, 50, 50}, 0, true);
    EXPECT_TRUE(eventually([&] { return areInOrder({notice, next, idOf(panel), last}); }));
}

TEST_F(X11WindowSystemTest, GivesWayToNobodyForEverInAQuarrel) {
    show(panel);
    const xcb_window_t rival = other.show(where);
    EXPECT_TRUE(eventually([&] { return areInOrder({rival, idOf(panel)}); }));
    const auto isRaised = [&](const xcb_generic_event_t& event, std::uint8_t type) {
        return type == XCB_CONFIGURE_NOTIFY &&
               as<xcb_configure_notify_event_t>(event).window == rival;
    };
    int rounds = 0;
    for (; rounds < 100; ++rounds) {
        answer(isRaised, [&] { other.raise(rival); });
        if (areInOrder({idOf(panel), rival})) break;
    }
    EXPECT_GT(rounds, 5);
    EXPECT_LT(rounds, 100) << "answers every time, at once";
    EXPECT_TRUE(eventually([&] { return areInOrder({rival, idOf(panel)}); }));
}

TEST_F(X11WindowSystemTest, LetsPressesThroughOutsideTheInputRegion) {
    other.show(where);
    show(panel);
    struct Case {
        QRegion region;
        QPoint at;  // in the window
        bool passes;
    };
    const QRect upper(0, 0, 200, 50);
    for (const Case& each : {Case{upper, {100, 20}, false}, Case{upper, {100, 49}, false},
                             Case{upper, {100, 50}, true}, Case{{}, {100, 20}, true}}) {
        windows.setInputRegion(panel, each.region);
        sync(*x11);
        other.movePointer(where.topLeft() + each.at);
        other.click(XCB_BUTTON_INDEX_1);
        EXPECT_EQ(other.presses(), each.passes ? 1 : 0) << each.at.y();
    }
}

TEST_F(X11WindowSystemTest, KnowsWhatCanBeSeenThroughAWindow) {
    using Translucency = WindowSystem::Translucency;
    EXPECT_EQ(windows.translucency(), Translucency::none);
    const xcb_window_t compositor = other.show({0, 0, 1, 1});
    xcb_set_selection_owner(other.connection(), compositor, x11->atom("_NET_WM_CM_S0"),
                            XCB_CURRENT_TIME);
    other.sync();
    EXPECT_EQ(windows.translucency(), Translucency::clear);
    const xcb_atom_t blur = x11->atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
    xcb_change_property(other.connection(), XCB_PROP_MODE_REPLACE, other.root(), blur, blur, 32, 0,
                        nullptr);
    other.sync();
    EXPECT_EQ(windows.translucency(), Translucency::blurred);
    xcb_delete_property(other.connection(), other.root(), blur);
    other.sync();
}

TEST_F(X11WindowSystemTest, AsksForBlurInDevicePixels) {
    const auto property = [this] {
        const auto cookie =
            xcb_get_property(other.connection(), false, idOf(panel),
                             x11->atom("_KDE_NET_WM_BLUR_BEHIND_REGION"), XCB_ATOM_CARDINAL, 0, 64);
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(other.connection(), cookie, nullptr));
        const auto* words = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        return std::vector<std::uint32_t>(words, words + reply->value_len);
    };
    windows.setBlurBehind(panel, QRect(10, 20, 100, 40));
    EXPECT_TRUE(eventually([&] {
        return property() == std::vector<std::uint32_t>{10, 20, 100, 40};
    }));
    windows.setBlurBehind(panel, {});
    EXPECT_TRUE(eventually([&] { return property().empty(); }));
}

TEST_F(X11WindowSystemTest, BorrowsTheKeysAndGivesThemBack) {
    const xcb_window_t editor = other.show({0, 300, 100, 100});
    QLineEdit field(&panel);
    for (int round = 0; round < 3; ++round) {
        other.focus(editor);
        show(panel);
        windows.takeKeys(panel);
        field.setFocus();
        EXPECT_TRUE(hasKeys(idOf(panel)));
        EXPECT_TRUE(eventually([&] { return panel.isActiveWindow() && field.hasFocus(); }));
        other.pressKey(38);  // A
        other.releaseKey(38);
        EXPECT_TRUE(eventually([&] { return field.text() == "a"; }));
        field.clear();
        windows.giveKeysBack(panel);
        panel.hide();
        EXPECT_TRUE(hasKeys(editor));
    }
}

TEST_F(X11WindowSystemTest, TakesTheKeysWhenShownLater) {
    windows.takeKeys(panel);
    show(panel);
    EXPECT_TRUE(hasKeys(idOf(panel)));
}

TEST_F(X11WindowSystemTest, GivesBackOnlyWhatItHasToWhoIsThere) {
    const xcb_window_t former = other.show({0, 300, 100, 100});
    const xcb_window_t chosen = other.show({100, 300, 100, 100});

    other.focus(former);
    show(panel);
    windows.takeKeys(panel);
    ASSERT_TRUE(hasKeys(idOf(panel)));
    other.focus(chosen);
    QCoreApplication::processEvents();
    windows.giveKeysBack(panel);
    panel.hide();
    EXPECT_EQ(other.focused(), chosen);

    other.focus(former);
    show(panel);
    windows.takeKeys(panel);
    ASSERT_TRUE(hasKeys(idOf(panel)));
    xcb_destroy_window(other.connection(), former);
    other.sync();
    windows.giveKeysBack(panel);
    panel.hide();
    EXPECT_TRUE(eventually([&] { return other.focused() != idOf(panel); }));
}

TEST_F(X11WindowSystemTest, FetchesTheKeysOnlyWhenTheyFollowThePointer) {
    const xcb_window_t former = other.show({0, 300, 100, 100});
    const xcb_window_t crossed = other.show({100, 300, 100, 100});
    other.focus(former);
    show(panel);
    windows.takeKeys(panel);
    ASSERT_TRUE(hasKeys(idOf(panel)));

    // As a window manager does where the focus follows the pointer: at first only to where it was
    // when the keys were taken, and not for ever.
    const auto cross = [&] {
        other.movePointer({5, 700});
        other.movePointer({150, 350});
        other.focus(crossed);
    };
    other.movePointer({150, 350});
    windows.giveKeysBack(panel);
    windows.takeKeys(panel);
    ASSERT_TRUE(hasKeys(idOf(panel)));
    const auto hasLeft = [](const xcb_generic_event_t&, std::uint8_t type) {
        return type == XCB_FOCUS_OUT;
    };
    int fetched = 0;
    for (; fetched < 40; ++fetched) {
        answer(hasLeft, cross);
        if (other.focused() != idOf(panel)) break;
        EXPECT_TRUE(eventually([this] { return panel.isActiveWindow(); }));
    }
    EXPECT_GT(fetched, 0);
    EXPECT_LT(fetched, 40) << "it is crossed for ever";
    windows.takeKeys(panel);  // as for a press in it
    EXPECT_TRUE(hasKeys(idOf(panel)));
    cross();
    EXPECT_TRUE(hasKeys(idOf(panel))) << "fetched anew";

    other.movePointer({50, 350});
    other.click(XCB_BUTTON_INDEX_1);
    other.focus(former);
    EXPECT_TRUE(eventually([&] { return !panel.isActiveWindow(); }));
    EXPECT_EQ(other.focused(), former);
    windows.takeKeys(panel);
    EXPECT_TRUE(hasKeys(idOf(panel)));
    windows.giveKeysBack(panel);
    EXPECT_TRUE(hasKeys(former)) << "to who had them last";
}

TEST_F(X11WindowSystemInsideWaylandTest, TakesTheLossOfTheKeysForAPressElsewhere) {
    const xcb_window_t chosen = other.show({0, 300, 100, 100});
    int heard = 0;
    const auto watch = presses.onPress([&] { ++heard; });
    show(panel);
    show(cap);
    windows.takeKeys(panel);
    ASSERT_TRUE(hasKeys(idOf(panel)));
    const auto lose = [&](xcb_window_t to) {
        other.focus(idOf(panel));
        other.movePointer({50, 350});
        other.focus(to);
        other.movePointer({5, 700});
        return heard > 0;
    };
    EXPECT_TRUE(eventually([&] { return lose(chosen); }));
    EXPECT_EQ(heard, 1);

    windows.takeKeys(cap);  // one of ours is no other program
    heard = 0;
    ASSERT_TRUE(hasKeys(idOf(cap)));
    other.focus(idOf(panel));
    EXPECT_TRUE(eventually([&] { return panel.isActiveWindow(); }));
    EXPECT_EQ(heard, 0);
}

}  // namespace
}  // namespace noonward::test
