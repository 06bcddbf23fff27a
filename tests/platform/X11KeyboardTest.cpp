#include "platform/x11/X11Keyboard.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <cstdlib>
#include <string>

#include "support/Wait.h"

namespace noonward::test {
namespace {

constexpr unsigned shift = 1;
constexpr unsigned lock = 2;
constexpr unsigned controlBit = 4;
constexpr unsigned alt = 8;
constexpr unsigned numLock = 16;
constexpr unsigned super = 64;
constexpr unsigned altGr = 128;
constexpr unsigned secondLayout = 1U << 13U;
constexpr unsigned button = 1U << 8U;

// Keys by their places: 38 A, 54 C, 24 Q, 25 W, 29 Y, 17 8, 34 [, 35 ].
struct Case {
    const char* layout;
    unsigned code;
    unsigned state;
    const char* wanted;
};

void install(const std::string& layout) {
    ASSERT_EQ(std::system(("setxkbmap " + layout).c_str()), 0);
}

QKeyEvent stroke(unsigned code, unsigned state) {
    return {QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, code, 0, state};
}

TEST(X11KeyboardTest, ReadsCharactersWithoutTheCommandModifiers) {
    const Case cases[] = {
        {"us", 54, 0, "c"},
        {"us", 54, controlBit, "c"},
        {"us", 54, controlBit | shift, "C"},
        {"us", 54, lock | super, "c"},
        {"us", 54, lock | shift, "C"},
        {"us", 54, alt | numLock | button, "c"},
        {"us", 17, shift, "*"},
        {"us", 66, 0, ""},
        {"de", 29, controlBit, "z"},
        {"de", 17, altGr, "["},
        {"de", 24, altGr | controlBit | alt, "@"},
        {"fr", 24, controlBit, "a"},
        {"us,ru", 54, 0, "c"},
        {"us,ru", 54, secondLayout | controlBit, "c"},  // no Latin letters: those of the first
        {"us,ru", 54, secondLayout | lock, "c"},
        {"us,ru", 54, secondLayout | shift, "C"},
        {"us,ru", 34, secondLayout, "["},
        {"us,ru", 17, secondLayout | shift, "*"},
        {"fr,ru", 24, secondLayout, "a"},
        {"gr,us", 54, 0, "c"},
        {"us,il", 25, secondLayout | controlBit, "w"},
        {"us,il", 34, secondLayout, "]"},  // its own sign
        {"ru", 54, controlBit, "c"},       // as on a US keyboard
    };
    const auto x11 = X11::connect();
    const X11Keyboard keyboard(*x11);
    std::string installed;
    for (const Case& each : cases) {
        const QKeyEvent event = stroke(each.code, each.state);
        if (std::exchange(installed, each.layout) != each.layout) install(installed);
        EXPECT_TRUE(eventually([&] {
            return keyboard.read(event).charactersUnmodified == each.wanted;
        })) << each.layout
            << ' ' << each.code << ' ' << each.state << " gives "
            << keyboard.read(event).charactersUnmodified;
    }
    install("us");
}

TEST(X11KeyboardTest, ReadsTheRestFromTheEvent) {
    const auto x11 = X11::connect();
    const X11Keyboard keyboard(*x11);
    const KeyPress typed = keyboard.read(
        {QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier, 54, 0, 5, "\x03"});
    EXPECT_TRUE(typed.command);
    EXPECT_TRUE(typed.shift);
    EXPECT_EQ(typed.characters, "\x03");
    EXPECT_EQ(typed.key, KeyPress::Key::other);

    const KeyPress composed =
        keyboard.read({QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, "ü"});
    EXPECT_FALSE(composed.command || composed.shift);
    EXPECT_EQ(composed.charactersUnmodified, "ü");

    using Key = KeyPress::Key;
    for (const auto& [code, key] : {std::pair{Qt::Key_Escape, Key::escape},
                                    {Qt::Key_Left, Key::leftArrow},
                                    {Qt::Key_Right, Key::rightArrow},
                                    {Qt::Key_Up, Key::other}})
        EXPECT_EQ(keyboard.read({QEvent::KeyPress, code, Qt::NoModifier}).key, key) << code;
}

TEST(X11KeyboardTest, SurvivesStrangeCodes) {
    const auto x11 = X11::connect();
    const X11Keyboard keyboard(*x11);
    for (const unsigned code : {1U, 7U, 255U, 256U, 0xffffffffU})
        for (const unsigned state : {0U, 0xffffU, 0xffffffffU})
            EXPECT_EQ(keyboard.read(stroke(code, state)).charactersUnmodified, "") << code;
}

}  // namespace
}  // namespace noonward::test
