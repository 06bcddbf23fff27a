#include "app/AppDelegate.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <optional>
#include <vector>

#include "app/Planner.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeGeocoder.h"
#include "fakes/StoreWorld.h"
#include "kit/Placed.h"

namespace noonward::test {
namespace {

using std::chrono::milliseconds;

Config places(bool welcomed) {
    Config config = threePlaces();
    config.welcomed = welcomed;
    return config;
}

/// Where the program's files are, while it lives.
class DataHome {
 public:
    explicit DataHome(const Config& config) {
        qputenv(name, QByteArray::fromStdString(folder_.path().string()));
        ConfigFile(configPaths(folder_.path().c_str(), nullptr)).save(config);
    }
    DataHome(const DataHome&) = delete;
    DataHome& operator=(const DataHome&) = delete;
    ~DataHome() { before_.isNull() ? qunsetenv(name) : qputenv(name, before_); }

 private:
    static constexpr auto name = "XDG_DATA_HOME";
    QByteArray before_ = qgetenv(name);
    TempFolder folder_;
};

/// The program at work on a desktop that is not there.
struct Running {
    explicit Running(const Config& config = places(true)) : home(config) {}

    void start() { delegate.emplace(planner, geocoder, desktop.services()); }
    void advance(int time) { desktop.queue.advance(milliseconds(time)); }
    void toggle() { EXPECT_TRUE(desktop.hotKeys.press(17, HotKeys::control | HotKeys::option)); }

    DataHome home;
    FakeDesktop desktop;
    FakeGeocoder geocoder;
    Planner planner{desktop.queue, desktop.zoneChanges, nullptr, ConfigFile::Access::readWrite};
    NotchUI& ui = planner.ui;
    std::optional<AppDelegate> delegate;
};

TEST(AppDelegate, OnlyAnInstalledCopysFirstRunSwitchesTheLoginItemOn) {
    for (const bool welcomed : {false, true}) {
        for (const bool installed : {false, true}) {
            Running program(places(welcomed));
            program.desktop.installed = installed;
            program.start();
            program.advance(3000);
            EXPECT_EQ(program.desktop.loginItem.on, installed && !welcomed);
            EXPECT_EQ(program.ui.welcomeShown(), !welcomed);
        }
    }
}

TEST(AppDelegate, ShowsTheTimeAtOnceWhenTheClockHasJumped) {
    Running program;
    program.start();
    const Instant before = program.planner.store.now();
    while (SystemClock().now() <= before) {
    }
    program.desktop.clockChanges.announce();
    EXPECT_GT(program.planner.store.now(), before);
}

TEST(AppDelegate, EveryRoadToThePanelOpensOrClosesIt) {
    Running program;
    program.start();
    const auto signal = [&](const char* member) { program.desktop.session.signal(member); };
    struct Step {
        std::function<void()> act;
        bool panel;
        bool settings;
    };
    const Step steps[] = {{[&] { program.toggle(); }, true, false},
                          {[&] { program.toggle(); }, false, false},
                          {[&] { signal("toggle"); }, true, false},
                          {[&] { signal("settings"); }, true, true},
                          {[&] { program.desktop.presses.press(); }, false, false},
                          {[&] { program.ui.onSettings(); }, true, true},
                          {[&] { program.ui.onTap(); }, false, false},
                          {[&] { program.ui.onTap(); }, true, false},
                          {[&] { program.desktop.screens.announce(); }, false, false},
                          {[&] { program.delegate->togglePanel(); }, true, false},
                          {[&] { program.ui.onUpdates(); }, false, false}};
    for (const Step& step : steps) {
        step.act();
        program.advance(1000);
        EXPECT_EQ(program.ui.panelShown(), step.panel) << &step - steps;
        EXPECT_EQ(program.ui.settingsShown(), step.settings) << &step - steps;
    }
}

// Windows of the program's that a test has left are gone with its delegate.
std::vector<KeyPanel*> panels() {
    std::vector<KeyPanel*> result;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* panel = dynamic_cast<KeyPanel*>(window)) result.push_back(panel);
    return result;
}

KeyPanel* panel() {
    for (KeyPanel* each : panels())
        if (each->windowTitle() == "Noonward") return each;
    return nullptr;
}

/// As the window system delivers it.
void mouse(QEvent::Type type, QPointF at) {
    QWindow* window = panel()->windowHandle();
    const bool isHeld = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, window->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isHeld ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
}

void key(const char* text) {
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(panel()->windowHandle(), &event);
}

TEST(AppDelegate, APressMeetsWhatIsShownByNowAndTakesTheKeys) {
    Running program;
    program.desktop.appearance.setAnimations(false);
    program.start();
    program.ui.onSettings();
    program.advance(1000);
    QApplication::processEvents();
    program.desktop.windows.keys = nullptr;  // a program that has come up meanwhile has them
    // A name's field that is there still, over the hours that are shown next.
    const auto fields = panel()->findChildren<QLineEdit*>();
    ASSERT_FALSE(fields.isEmpty());
    const QPointF at(400, fields[0]->mapTo(panel(), fields[0]->rect().center()).y());
    program.ui.settingsShown = false;
    mouse(QEvent::MouseButtonPress, at);
    EXPECT_EQ(program.desktop.windows.keys, panel());
    EXPECT_TRUE(program.planner.store.proposal());
    EXPECT_EQ(panel()->content().cursor().shape(), Qt::ClosedHandCursor);
    mouse(QEvent::MouseButtonRelease, at);
    QApplication::processEvents();
    EXPECT_EQ(panel()->content().cursor().shape(), Qt::OpenHandCursor);
}

TEST(AppDelegate, AHiddenRowsButtonIsOneOverAllOfItsWidth) {
    Running program;
    program.desktop.appearance.setAnimations(false);
    program.start();
    Store& store = program.planner.store;
    store.toggleHidden(store.rows()[1]);
    program.toggle();
    program.advance(1000);
    const QMargins margins = panel()->content().margins();
    const auto click = [&](double x) {
        const QPointF at(margins.left() + x, margins.top() + 6 + 40 + 56 + 8 + 13);
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    };
    click(600);  // right of it there are hours
    EXPECT_TRUE(store.proposal());
    store.backToNow();
    click(400);
    EXPECT_FALSE(store.proposal());
    EXPECT_TRUE(store.hidden().empty());
}

TEST(AppDelegate, KeysAreAMenusWhileItIsOpenAndGivenBackAtTheEnd) {
    Running program;
    program.start();
    program.toggle();
    program.advance(1000);
    EXPECT_EQ(program.desktop.windows.keys, panel());
    {
        QMenu menu;
        menu.addAction("Paste");
        menu.popup({});
        key("s");
        EXPECT_FALSE(program.ui.settingsShown());
    }
    key("s");
    EXPECT_TRUE(program.ui.settingsShown());
    program.ui.onQuit();
    EXPECT_EQ(program.desktop.windows.keys, nullptr);
}

TEST(AppDelegate, MenusAndTooltipsLookLikeThePanels) {
    Running program;
    program.start();
    for (const auto& [name, palette] :
         {std::pair("light", Palette::light), {"dark", Palette::dark}}) {
        program.planner.store.setAppearance(name);
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), palette.tint.qcolor());
        EXPECT_EQ(QMenu().palette().color(QPalette::WindowText), palette.text.qcolor());
        EXPECT_EQ(QToolTip::font().family(), "Hanken Grotesk");
    }
}

TEST(AppDelegate, TheNotchHasRoomToSwingBeyondItsFrame) {
    Running program;
    program.start();
    program.ui.onTap();
    program.advance(1000);
    for (KeyPanel* each : panels()) {
        if (each == panel()) continue;
        EXPECT_EQ(each->frame().width(), program.ui.windowWidth());
        EXPECT_EQ(each->geometry().width(), program.ui.windowWidth() + 2 * 11);  // 10.7 % of 99
        EXPECT_EQ(each->geometry().center().x(), 959);
    }
}

TEST(AppDelegate, FindsTheNotchWhenTheScreensHaveChanged) {
    Running program;
    program.start();
    program.desktop.screens.screens = {{.frame = {0, 0, 1280, 800}}};
    program.desktop.screens.announce();
    program.toggle();
    EXPECT_EQ(panel()->frame().left(), 42);
}

bool anythingMoves() {
    const auto all = panels();
    return std::any_of(all.begin(), all.end(),
                       [](KeyPanel* panel) { return panel->content().moving(); });
}

bool showsSomewhere(const char* words) {
    const auto all = panels();
    return std::any_of(all.begin(), all.end(), [&](KeyPanel* panel) {
        return kit::dump(panel->content().placed()).find(words) != std::string::npos;
    });
}

TEST(AppDelegate, JumpsWhereTheDesktopWantsNoAnimations) {
    for (const bool beforeTheStart : {true, false}) {
        for (const bool wanted : {false, true, false}) {
            Running program;
            if (beforeTheStart) program.desktop.appearance.setAnimations(wanted);
            program.start();
            program.desktop.appearance.setAnimations(wanted);
            const auto shows = [&](const char* what, auto act, int time) {
                act();
                program.advance(time);
                EXPECT_EQ(anythingMoves(), wanted) << what;
            };
            shows(
                "the notch opens",
                [&] {
                    program.desktop.pointer.moveTo({{960, 10}});
                },
                200);
            EXPECT_TRUE(program.ui.expanded());
            shows(
                "the panel opens", [&] { program.toggle(); }, 1);
            EXPECT_TRUE(program.ui.panelShown());
            shows(
                "the panel closes", [&] { program.toggle(); }, 1);
            EXPECT_FALSE(program.ui.panelShown());
        }
    }
}

TEST(AppDelegate, ShowsAnUpdateUntilTheUserHasSeenIt) {
    Running program;
    program.desktop.hasUpdater = true;
    program.start();
    UpdateListener* listener = program.desktop.updater.listener;
    ASSERT_NE(listener, nullptr);
    EXPECT_TRUE(listener->takesPartInGentleReminders());
    program.toggle();
    program.advance(1000);
    const char* const symbol = "arrow-circle-down";
    EXPECT_FALSE(showsSomewhere("Update to 1.2"));
    EXPECT_FALSE(showsSomewhere(symbol));

    listener->willShow({.version = "1.2"});
    EXPECT_TRUE(showsSomewhere("Update to 1.2")) << "in the ribbon";
    EXPECT_TRUE(showsSomewhere(symbol)) << "beside the notch";
    program.ui.onSettings();
    program.advance(1000);
    EXPECT_TRUE(showsSomewhere("Update to 1.2")) << "in the settings";

    program.ui.onUpdates();
    program.advance(1000);
    EXPECT_EQ(program.desktop.updater.checks, 1);
    EXPECT_FALSE(program.ui.panelShown());
    listener->userHasSeen();
    program.toggle();
    program.advance(1000);
    EXPECT_FALSE(showsSomewhere("Update to 1.2"));
    EXPECT_FALSE(showsSomewhere(symbol));
}

}  // namespace
}  // namespace noonward::test
