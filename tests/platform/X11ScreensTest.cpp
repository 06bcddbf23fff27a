#include "platform/x11/X11Screens.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <cstring>
#include <string_view>

#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

class X11ScreensTest : public testing::Test {
 protected:
    /// Sets a property of the root window, as the window manager does; an empty one is removed.
    void set(const char* property, const std::vector<std::uint32_t>& words,
             std::uint8_t bits = 32) {
        xcb_connection_t* connection = other.connection();
        if (words.empty())
            xcb_delete_property(connection, other.root(), x11->atom(property));
        else
            xcb_change_property(connection, XCB_PROP_MODE_REPLACE, other.root(),
                                x11->atom(property), XCB_ATOM_CARDINAL, bits,
                                static_cast<std::uint32_t>(words.size()), words.data());
        other.sync();
    }
    void TearDown() override {
        set("_NET_WORKAREA", {});
        set("_NET_CURRENT_DESKTOP", {});
    }

    OtherClient other;
    std::unique_ptr<X11> x11 = X11::connect();
    X11Screens screens{*x11};
};

TEST_F(X11ScreensTest, DescribesTheScreen) {
    ASSERT_EQ(screens.all().size(), 1U);
    ASSERT_TRUE(screens.main());
    EXPECT_EQ(screens.main()->frame, QRectF(0, 0, 1280, 800));
    EXPECT_EQ(screens.main()->topInset, 0);
}

TEST_F(X11ScreensTest, TheStatusBarIsWhatIsKeptFreeAtTheTop) {
    struct Case {
        std::vector<std::uint32_t> areas;
        std::vector<std::uint32_t> workspace;
        double wanted;
        std::uint8_t bits = 32;
    };
    const Case cases[] = {{{}, {}, 0},
                          {{0, 32, 1280, 768}, {}, 32},
                          {{0, 32, 1280, 768, 0, 27, 1280, 773}, {1}, 27},
                          {{0, 32, 1280, 768}, {1}, 0},
                          {{0, 400, 1280, 400}, {0}, 0},
                          {{0, 0xffffffff, 1280, 400}, {0}, 0},
                          {{0, 32}, {0}, 0},
                          {{0, 32, 1280, 768}, {0}, 0, 8}};
    for (const Case& each : cases) {
        set("_NET_WORKAREA", each.areas, each.bits);
        set("_NET_CURRENT_DESKTOP", each.workspace);
        EXPECT_EQ(screens.statusBarThickness(), each.wanted)
            << testing::PrintToString(each.areas) << testing::PrintToString(each.workspace);
    }
}

TEST_F(X11ScreensTest, KnowsTheDesktopWhoseClockLiesUnderTheNotch) {
    const xcb_window_t sign = other.show({0, 0, 1, 1});
    EXPECT_FALSE(screens.hasOwnClock());
    set("_NET_SUPPORTING_WM_CHECK", {sign});
    for (const char* name : {"Openbox", "GNOME Shell"}) {
        xcb_change_property(other.connection(), XCB_PROP_MODE_REPLACE, sign,
                            x11->atom("_NET_WM_NAME"), x11->atom("UTF8_STRING"), 8,
                            static_cast<std::uint32_t>(std::strlen(name)), name);
        other.sync();
        EXPECT_EQ(screens.hasOwnClock(), std::string_view(name) == "GNOME Shell") << name;
    }
    other.destroy(sign);  // a window manager that has ended leaves its name's window behind
    EXPECT_FALSE(screens.hasOwnClock());
    set("_NET_SUPPORTING_WM_CHECK", {});
}

TEST_F(X11ScreensTest, TellsOfChangesOnceAndOnlyOfRealOnes) {
    int changes = 0;
    const auto heard = screens.onChange([&] { ++changes; });
    set("_NET_WORKAREA", {0, 20, 1280, 780});
    set("_NET_WORKAREA", {0, 32, 1280, 768});
    EXPECT_TRUE(eventually([&] { return changes > 0 && screens.statusBarThickness() == 32; }));
    EXPECT_LE(changes, 2);
    QCoreApplication::processEvents();
    changes = 0;
    int notices = 0;
    const auto seen = x11->onEvent([&](const xcb_generic_event_t&, std::uint8_t type) {
        notices += type == XCB_PROPERTY_NOTIFY;
    });
    for (const std::uint32_t top : {32U, 0U, 32U}) {  // in the end a bar has started anew
        notices = 0;
        set("_NET_WORKAREA", {0, top, 1280, 700});
        EXPECT_TRUE(eventually([&] { return notices > 0; }));
        QCoreApplication::processEvents();
    }
    set("_NET_WORKAREA", {0, 25, 1280, 700});
    EXPECT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace noonward::test
