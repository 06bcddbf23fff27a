#include "platform/x11/X11Pointer.h"

#include <gtest/gtest.h>

#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

constexpr QRect zone{400, 0, 200, 32};
constexpr QPoint inside{500, 10};
constexpr QPoint outside{500, 300};

struct Compositor {
    explicit Compositor(OtherClient& client) : client_(client), window_(client.show({0, 0, 1, 1})) {
        own(window_);
    }
    ~Compositor() { own(XCB_WINDOW_NONE); }

    void own(xcb_window_t owner) {
        const char name[] = "_NET_WM_CM_S0";
        const auto cookie = xcb_intern_atom(client_.connection(), false, sizeof name - 1, name);
        const Reply<xcb_intern_atom_reply_t> atom(
            xcb_intern_atom_reply(client_.connection(), cookie, nullptr));
        xcb_set_selection_owner(client_.connection(), owner, atom->atom, XCB_CURRENT_TIME);
        client_.sync();
    }

    OtherClient& client_;
    xcb_window_t window_;
};

class X11PointerTest : public testing::Test {
 protected:
    void SetUp() override { other.movePointer(outside); }
    void wait() {
        pointer.waitFor(zone, [this] { ++entered; });
        sync(*x11);
    }
    bool isEntered(int times = 1) {
        const bool result = eventually([&] { return entered == times; });
        sync(*x11);
        return result;
    }
    // The window that lies in front of all, if it is of this process.
    bool isInFront() { return x11->isOurs(other.stack().back()); }

    OtherClient other;
    std::unique_ptr<X11> x11 = X11::connect();
    X11Stack stack{*x11};
    X11Pointer pointer{*x11, stack};
    int entered = 0;
};

TEST_F(X11PointerTest, TellsWhereThePointerIs) {
    other.movePointer({123, 456});
    EXPECT_EQ(pointer.position(), QPointF(123, 456));
}

TEST_F(X11PointerTest, CallsOnceWhenTheZoneIsEntered) {
    for (const QPoint& corner : {zone.topLeft(), zone.bottomRight()}) {
        other.movePointer(outside);
        entered = 0;
        wait();
        other.movePointer(zone.bottomRight() + QPoint(1, 0));
        other.movePointer(zone.bottomRight() + QPoint(0, 1));
        other.movePointer(zone.topLeft() - QPoint(1, 0));
        QCoreApplication::processEvents();
        EXPECT_EQ(entered, 0) << "entered from beside the zone";
        other.movePointer(corner);
        EXPECT_TRUE(isEntered());
        other.movePointer(outside);
        other.movePointer(corner);
        QCoreApplication::processEvents();
        EXPECT_EQ(entered, 1);
    }
}

TEST_F(X11PointerTest, CallsFromTheEventLoopWhenThePointerIsThereAlready) {
    for (const QPoint& beside : {QPoint(zone.right() + 1, 10), QPoint(500, zone.bottom() + 1)}) {
        other.movePointer(beside);
        wait();
        QCoreApplication::processEvents();
        EXPECT_EQ(entered, 0) << beside.x() << ' ' << beside.y();
    }
    other.movePointer(inside);
    wait();
    EXPECT_EQ(entered, 0);
    EXPECT_TRUE(isEntered());
}

TEST(X11PointerInsideWaylandTest, KnowsThePointerForAsLongAsItRestsInTheZone) {
    OtherClient other;
    const auto x11 = X11::connect(true);
    X11Stack stack(*x11);
    X11Pointer pointer(*x11, stack);
    other.movePointer(inside);  // as far as the server knows: it may be elsewhere by now
    bool entered = false;
    pointer.waitFor(zone, [&] {
        entered = true;
        pointer.stopWaiting();
    });
    sync(*x11);
    QCoreApplication::processEvents();
    EXPECT_FALSE(entered);
    EXPECT_EQ(pointer.position(), std::nullopt);
    for (const QPoint& at : {inside + QPoint(1, 0), zone.bottomRight()}) {
        other.movePointer(at);
        EXPECT_TRUE(eventually([&] { return entered; }));
        EXPECT_EQ(pointer.position(), QPointF(at));
    }
    other.movePointer(outside);
    EXPECT_TRUE(eventually([&] { return !pointer.position(); }));

    sync(*x11);
    other.show(zone);
    other.movePointer(inside);
    other.click(XCB_BUTTON_INDEX_1);
    EXPECT_EQ(other.presses(), 1);
}

TEST_F(X11PointerTest, ForgetsWhatItNoLongerWaitsFor) {
    int former = 0;
    other.movePointer(inside);
    pointer.waitFor(zone, [&] { ++former; });
    wait();
    EXPECT_TRUE(isEntered());
    pointer.waitFor(zone, [&] { ++former; });
    pointer.stopWaiting();
    other.movePointer(outside);
    wait();
    other.movePointer(inside);
    EXPECT_TRUE(isEntered(2));
    EXPECT_EQ(former, 0);
}

TEST_F(X11PointerTest, IsNotSeenAndLetsPressesThroughOnceEntered) {
    other.show(zone.adjusted(-20, 0, 20, 20), 0x3366cc);
    const auto before = other.pixels(zone.adjusted(-20, 0, 20, 20));
    wait();
    QCoreApplication::processEvents();
    EXPECT_EQ(other.pixels(zone.adjusted(-20, 0, 20, 20)), before);

    other.movePointer(inside);
    ASSERT_TRUE(isEntered());
    other.click(XCB_BUTTON_INDEX_1);
    EXPECT_EQ(other.presses(), 1);
    EXPECT_EQ(other.pixels(zone.adjusted(-20, 0, 20, 20)), before);
}

TEST_F(X11PointerTest, StaysInFrontOfWindowsThatComeLater) {
    wait();
    other.show(zone);
    EXPECT_TRUE(eventually([this] { return isInFront(); }));
    other.movePointer(inside);
    EXPECT_TRUE(isEntered());
}

TEST_F(X11PointerTest, WaitsOnWhenTheCompositorComesAndGoes) {
    const auto isInputOnly = [this](xcb_window_t window) {
        const auto cookie = xcb_get_window_attributes(other.connection(), window);
        const Reply<xcb_get_window_attributes_reply_t> is(
            xcb_get_window_attributes_reply(other.connection(), cookie, nullptr));
        return is && is->_class == XCB_WINDOW_CLASS_INPUT_ONLY;
    };
    const auto hasTrigger = [&](bool inputOnly) {
        return eventually([&] {
            const xcb_window_t front = other.stack().back();
            return x11->isOurs(front) && isInputOnly(front) == inputOnly;
        });
    };
    wait();
    EXPECT_TRUE(hasTrigger(true));
    {
        const Compositor compositor(other);
        EXPECT_TRUE(hasTrigger(false));
    }
    EXPECT_TRUE(hasTrigger(true));
    other.movePointer(inside);
    EXPECT_TRUE(isEntered());
}

}  // namespace
}  // namespace noonward::test
