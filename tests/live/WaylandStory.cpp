#include "live/WaylandDesktop.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

constexpr auto foldingTime = 800ms;  // and opening again, if it were to

class WaylandStory : public WaylandDesktop {
 protected:
    static constexpr QPoint below{800, 700};
};

TEST_F(WaylandStory, TheNotchOpensForAHandThatRestsAndNobodyLosesAKey) {
    showOther();
    launch();
    hand->key("a");
    hoverNotch();
    EXPECT_TRUE(staysFor(foldingTime, [this] { return isEarThere(); }));
    hand->key("b");
    hand->movePointer(below);
    see("the notch folded", [this] { return isFolded(); });
    EXPECT_TRUE(staysFor(foldingTime, [this] { return isFolded(); }));
    hand->key("c");
    hand->clickAt(below);
    hoverNotch();
    hand->movePointer({100, 12});
    see("the notch folded", [this] { return isFolded(); });
    hand->key("d");
    seeGiven("abc.d");
}

TEST_F(WaylandStory, AClickOpensTheRibbonWithTheKeysAndGivesThemBack) {
    showOther();
    launch();
    hoverNotch();
    hand->click();
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand->type("7:30am ny");
    hand->key("Return");
    hand->movePointer(below);
    const auto close = [this] {
        hand->key("Escape");
        see("the notch folded", [this] { return isFolded(); });
    };
    hand->key("c");
    close();
    // The program that pastes may need the keyboard for it.
    see("the copied times", [this] {
        return paste("-t text/plain;charset=utf-8").find("New York 07:30 ") != std::string::npos;
    });
    toggle();
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand->key("p");
    close();
    see("the copied picture", [this] { return paste("-t image/png").starts_with("\x89PNG"); });
    hand->key("x");
    seeGiven("x");
}

TEST_F(WaylandStory, APressElsewhereClosesWhatIsOpen) {
    showOther();
    launch();
    hoverNotch();
    hand->movePointer(below);
    toggle();
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand->click();
    see("the ribbon gone", [this] { return isFolded(); });
    hand->key("x");
    see("the key", [this] { return givenToOther().ends_with("x"); });

    hoverNotch();
    hand->click(3);  // it has come back before it was gone
    const auto isMenuSeen = [this] {
        sight.look();
        return sight.isBright({760, 34, 100, 50}, 150);
    };
    see("the menu", isMenuSeen);
    if (Compositor::kind() == Compositor::Kind::gnome) return;  // an X client's menu has no keys
    hand->key("Escape");
    see("the menu gone", [&] { return !isMenuSeen(); });
    hoverNotch();
    hand->movePointer(resting + QPoint(3, 0));
    hand->click(3);
    see("the menu again", isMenuSeen);
    hand->clickAt(resting + QPoint(30, 18));
    see("the settings", [this] { return areSettingsSeen(); });

    hand->clickAt({left + 200, panelTop + 161 + 120});  // the field for a place's name
    hand->type("nairobi");
    hand->key("Tab");
    hand->key(" ");
    see("the new place", [this] { return config()["places"].size() == 3; });
    hand->clickAt(below);
    see("the settings gone", [this] { return isFolded(); });
    hand->key("y");
    see("the key", [this] { return givenToOther().ends_with("y"); });
    EXPECT_EQ(givenToOther().find_first_not_of(".xy"), std::string::npos) << givenToOther();
}

// Where every pixel had a double beside it, the picture would be one of half the size.
TEST_F(WaylandStory, IsSharpAtTwiceTheScale) {
    if (Compositor::kind() == Compositor::Kind::gnome || Compositor::isXWaylandWanted())
        GTEST_SKIP() << "an X client knows of one scale only";
    start(2);
    launch();
    toggle();
    const QRect ear(2 * cap.left() + 42, 8, 140, 32);
    see("the notch", [&] {
        sight.look();
        return sight.size() == QSize(3200, 1800) && sight.isBright(ear, 200);
    });
    int single = 0;
    for (int y = ear.top(); y < ear.bottom(); ++y)
        for (int x = ear.left(); x < ear.right(); x += 2)
            single += sight.colour({x, y}) != sight.colour({x + 1, y});
    EXPECT_GT(single, 20);
}

TEST_F(WaylandStory, EndsWithTheCompositor) {
    launch();
    toggle();
    compositor->signal(SIGKILL);
    EXPECT_EQ(exitStatus(), 1);
}

}  // namespace
}  // namespace noonward::test
