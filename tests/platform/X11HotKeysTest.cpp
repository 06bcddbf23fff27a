#include "platform/x11/X11HotKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/OtherClient.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

using Outcome = HotKeys::Outcome;

constexpr xcb_keycode_t controlKey = 37;
constexpr xcb_keycode_t altKey = 64;
constexpr xcb_keycode_t capsLockKey = 66;
constexpr xcb_keycode_t numLockKey = 77;
constexpr xcb_keycode_t shiftKey = 50;
constexpr xcb_keycode_t tKey = 28;
constexpr xcb_keycode_t gKey = 42;
constexpr int tCode = 17;
constexpr int gCode = 5;
constexpr auto controlOption = HotKeys::control | HotKeys::option;
constexpr auto controlAlt = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

class X11HotKeysTest : public testing::Test {
 protected:
    Outcome add(int keyCode, std::uint32_t id) {
        return keys.registerKey(keyCode, controlOption, id,
                                [this](std::uint32_t which) { pressed.push_back(which); });
    }
    void strike(const std::vector<xcb_keycode_t>& chord) {
        for (const xcb_keycode_t code : chord)
            other.pressKey(code);
        for (auto code = chord.rbegin(); code != chord.rend(); ++code)
            other.releaseKey(*code);
    }
    bool grabElsewhere(std::uint16_t modifiers) {
        sync(*x11);
        const auto cookie = xcb_grab_key_checked(other.connection(), false, other.root(), modifiers,
                                                 tKey, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !Reply<xcb_generic_error_t>(xcb_request_check(other.connection(), cookie));
    }

    using ModifierMap = std::vector<xcb_keycode_t>;  // the keys of each modifier, one by one
    ModifierMap modifierMap() {
        const Reply<xcb_get_modifier_mapping_reply_t> now(xcb_get_modifier_mapping_reply(
            other.connection(), xcb_get_modifier_mapping(other.connection()), nullptr));
        const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(now.get());
        return {codes, codes + 8 * now->keycodes_per_modifier};
    }
    static ModifierMap swapped(ModifierMap map, int one, int two) {
        const auto width = static_cast<int>(map.size() / 8);
        std::swap_ranges(map.begin() + one * width, map.begin() + (one + 1) * width,
                         map.begin() + two * width);
        return map;
    }
    bool install(const ModifierMap& map) {
        const auto width = static_cast<std::uint8_t>(map.size() / 8);
        const Reply<xcb_set_modifier_mapping_reply_t> done(xcb_set_modifier_mapping_reply(
            other.connection(), xcb_set_modifier_mapping(other.connection(), width, map.data()),
            nullptr));
        return done && done->status == XCB_MAPPING_STATUS_SUCCESS;
    }

    OtherClient other;
    std::unique_ptr<X11> x11 = X11::connect();
    X11HotKeys keys{*x11};
    std::vector<std::uint32_t> pressed;
};

TEST_F(X11HotKeysTest, IsCalledByIdWhateverLocksAreOn) {
    ASSERT_EQ(add(tCode, 1), Outcome::registered);
    ASSERT_EQ(add(gCode, 2), Outcome::registered);
    using Ids = std::vector<std::uint32_t>;
    for (const std::vector<xcb_keycode_t>& locks :
         {std::vector<xcb_keycode_t>{}, {capsLockKey}, {numLockKey}, {capsLockKey, numLockKey}}) {
        for (const xcb_keycode_t lock : locks)
            strike({lock});
        pressed.clear();
        strike({controlKey, tKey});
        strike({controlKey, altKey, shiftKey, tKey});
        strike({controlKey, altKey, tKey});
        strike({altKey, controlKey, gKey});
        EXPECT_TRUE(eventually([&] { return pressed.size() >= 2; }));
        EXPECT_EQ(pressed, (Ids{1, 2}));
        for (const xcb_keycode_t lock : locks)
            strike({lock});
    }
}

TEST_F(X11HotKeysTest, IsCalledOnceHoweverLongItIsHeld) {
    ASSERT_EQ(add(tCode, 1), Outcome::registered);
    int strokes = 0;
    const auto heard = x11->onEvent([&](const xcb_generic_event_t& event, std::uint8_t type) {
        strokes += type == XCB_KEY_PRESS && as<xcb_key_press_event_t>(event).detail == tKey;
    });
    for (const xcb_keycode_t code : {controlKey, altKey, tKey})
        other.pressKey(code);
    EXPECT_TRUE(eventually([&] { return strokes >= 4; })) << "the server repeats";
    for (const xcb_keycode_t code : {tKey, altKey, controlKey})
        other.releaseKey(code);
    strike({controlKey, altKey, tKey});
    EXPECT_TRUE(eventually([&] { return pressed.size() >= 2; }));
    EXPECT_EQ(pressed.size(), 2U);
}

TEST_F(X11HotKeysTest, SaysThatAnotherProgramHasItAndKeepsNoHalf) {
    ASSERT_TRUE(grabElsewhere(controlAlt | XCB_MOD_MASK_2));  // with Num Lock on
    EXPECT_EQ(add(tCode, 1), Outcome::taken);
    EXPECT_TRUE(grabElsewhere(controlAlt));
    EXPECT_EQ(add(gCode, 2), Outcome::registered);
}

TEST_F(X11HotKeysTest, HasNoKeysButLetters) {
    for (const int code : {-1, 10, 18, 47, 1000})
        EXPECT_EQ(add(code, 1), Outcome::unavailable) << code;
}

TEST_F(X11HotKeysTest, FollowsAltToAnotherModifier) {
    ASSERT_EQ(add(tCode, 1), Outcome::registered);
    const auto original = modifierMap();
    const auto changed = swapped(original, XCB_MAP_INDEX_1, XCB_MAP_INDEX_3);
    ASSERT_TRUE(install(changed));
    EXPECT_TRUE(eventually([&] {
        if (pressed.empty()) strike({controlKey, altKey, tKey});
        return !pressed.empty();
    }));
    EXPECT_TRUE(grabElsewhere(controlAlt)) << "the former bits are free again";
    ASSERT_TRUE(install(original));
}

TEST_F(X11HotKeysTest, TriesAgainWhereAnotherProgramWasInTheWay) {
    ASSERT_EQ(add(tCode, 1), Outcome::registered);
    const auto original = modifierMap();
    const auto changed = swapped(original, XCB_MAP_INDEX_1, XCB_MAP_INDEX_3);
    constexpr auto newBits = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_3;
    ASSERT_TRUE(grabElsewhere(newBits));
    ASSERT_TRUE(install(changed));
    EXPECT_TRUE(eventually([&] { return grabElsewhere(controlAlt); })) << "it has followed";

    xcb_ungrab_key(other.connection(), tKey, other.root(), newBits);
    other.sync();
    ASSERT_TRUE(install(swapped(changed, XCB_MAP_INDEX_4, XCB_MAP_INDEX_5)));
    EXPECT_TRUE(eventually([&] {
        if (pressed.empty()) strike({controlKey, altKey, tKey});
        return !pressed.empty();
    }));
    ASSERT_TRUE(install(original));
}

}  // namespace
}  // namespace noonward::test
