#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWheelEvent>
#include <set>

#include "kit/Accessibility.h"
#include "kit/FirstClickHostingView.h"
#include "kit/OffScreen.h"
#include "views/SettingsScene.h"

namespace noonward::test {
namespace {

/// The settings in a window, with the keyboard.
struct SettingsWindow : SettingsScene {
    using SettingsScene::SettingsScene;

    void open() {
        kit::installAccessibility();
        host.resize(host.fittingSize().toSize());
        host.show();
        QApplication::setActiveWindow(&host);
        host.setFocus();
        QApplication::processEvents();
    }
    void key(int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, code, modifiers, text);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
        QApplication::processEvents();
        host.refresh();
    }
    void type(const char* text) {
        for (const QChar letter : QString::fromUtf8(text))
            key(0, letter);
    }
    QString focusName() const {
        QWidget* focus = QApplication::focusWidget();
        return focus ? QAccessible::queryAccessibleInterface(focus)->text(QAccessible::Name)
                     : QString();
    }
    void tabTo(const char* name) {
        for (int step = 0; step < 100 && !focusName().startsWith(QString::fromUtf8(name)); ++step)
            key(Qt::Key_Tab, "\t");
        ASSERT_TRUE(focusName().startsWith(QString::fromUtf8(name)));
    }

    kit::FirstClickHostingView host{animations, rootEnvironment(),
                                    [this] { return view.body(Scheme::dark); }};
    Subscription changes[3] = {store.changes().subscribe([this] { host.invalidate(); }),
                               ui.changes().subscribe([this] { host.invalidate(); }),
                               view.changes().subscribe([this] { host.invalidate(); })};
};

// A desktop whose windows glide ends every test that looks at real fields in the middle of it.
struct StillWindow : SettingsWindow {
    explicit StillWindow(const Config& config = threePlaces(),
                         const SettingsView::Options& options = {})
        : SettingsWindow(config, options) {
        animations.setEnabled(false);
        open();
    }
};

TEST(SettingsKeyboard, ReachesEverythingAndShowsIt) {
    StillWindow window(places(5), {.query = "united", .editing = 4});
    const QRect box(QPoint(0, 0), window.host.size());
    std::set<QWidget*> reached;
    window.key(Qt::Key_Tab, "\t");
    QWidget* first = QApplication::focusWidget();
    do {
        QWidget* focus = QApplication::focusWidget();
        reached.insert(focus);
        EXPECT_TRUE(box.contains(focus->geometry())) << window.focusName().toStdString();
        // What is scrolled half out of sight is cut off there.
        EXPECT_TRUE(focus->mask().isEmpty() || focus->mask().contains(focus->rect().center()));
        window.key(Qt::Key_Tab, "\t");  // in the date from part to part
    } while (QApplication::focusWidget() != first && reached.size() < 200);
    std::size_t controls = 0;
    kit::walk(window.host.placed(), [&](const kit::Placed& part) {
        const kit::Interaction* interaction = part.node->interaction();
        controls +=
            part.node->textField() || part.node->dateField() || (interaction && interaction->press);
    });
    EXPECT_EQ(reached.size(), controls);
    EXPECT_GT(controls, 50U);
}

TEST(SettingsKeyboard, TypesANameWithASpaceOverATrimmedOne) {
    StillWindow window;
    window.tabTo("Name of London");
    auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    edit->selectAll();
    window.type("New York");
    EXPECT_EQ(edit->text(), "New York");
    EXPECT_EQ(window.labels().at(0), "New York");
    EXPECT_TRUE(edit->hasFocus()) << "through every rebuild";
    edit->undo();
    EXPECT_NE(edit->text(), "New York");
}

TEST(SettingsKeyboard, AddsOneCityAfterTheOther) {
    StillWindow window(places(4));
    window.tabTo("A city — Tokyo, Nairobi, Toronto…");
    QWidget* field = QApplication::focusWidget();
    window.type("nairobi");
    window.press("Nairobi");  // with the pointer
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), field) << "for the next one";
    EXPECT_EQ(qobject_cast<QLineEdit*>(field)->text(), "");
    window.type("tokyo");
    window.key(Qt::Key_Tab, "\t");
    window.key(Qt::Key_Space, " ");  // the sixth
    EXPECT_EQ(window.labels().back(), "Tokyo");
    EXPECT_EQ(QApplication::focusWidget(), &window.host) << "nothing is pressed by the next Space";
    window.ui.settingsShown = true;
    window.key(Qt::Key_Return, "\r");
    EXPECT_FALSE(window.ui.settingsShown()) << "Done";
}

TEST(SettingsKeyboard, AddsTheDayThatIsShown) {
    StillWindow window(threePlaces(), {.editing = 0});
    window.tabTo("New day off");
    auto* date = qobject_cast<QDateEdit*>(QApplication::focusWidget());
    EXPECT_EQ(date->date(), QDate(2026, 3, 18));
    window.key(Qt::Key_1, "1");  // of a day in March, half typed
    const QPointF at = window.buttons("Add").at(0).rect.center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, window.host.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          {});
        QApplication::sendEvent(&window.host, &event);
    }
    EXPECT_EQ(window.world.saved().places[0].daysOff, std::vector<std::string>{"2026-03-01"});
    EXPECT_EQ(date->text(), "01/03/2026");

    QWheelEvent wheel({5, 5}, date->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(date, &wheel);
    EXPECT_EQ(date->date(), QDate(2026, 3, 1)) << "the wheel is for the column";
}

// What a name looks like does not depend on whether its field can be typed into.
TEST(SettingsKeyboard, NamesLookAsTheyDoInPictures) {
    Config config = threePlaces();
    config.places[1].label = "שלום עולם";
    config.places[2].label = "Start" + std::string(200, 'w');
    StillWindow window(config);
    const QImage live = window.host.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    kit::Tiles tiles;
    const QImage picture = kit::paintOffScreen(window.host.placed(), 1, tiles);
    for (const QPoint at : {QPoint(100, 180), QPoint(100, 240)}) {
        const QRect name(at, QSize(330, 26));
        EXPECT_EQ(live.copy(name), picture.copy(name).convertToFormat(QImage::Format_ARGB32));
    }
}

TEST(SettingsKeyboard, MovedRowsGlide) {
    SettingsWindow window;
    window.open();
    window.tabTo("Move down");
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
    QApplication::sendEvent(QApplication::focusWidget(), &space);
    EXPECT_TRUE(window.host.moving());
    // A field can be pressed in the meantime, and typed into.
    const kit::Placed* search = kit::find(window.host.placed(), [](const kit::Placed& part) {
        return part.node->textField() && part.node->textField()->text.empty();
    });
    const QPointF at = search->rect.center();
    QMouseEvent press(QEvent::MouseButtonPress, at, window.host.mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window.host, &press);
    window.type("x");
    EXPECT_TRUE(window.says("text \"x\""));
    while (window.host.moving())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // It cannot move down any further.
    EXPECT_EQ(window.labels().back(), "New York");
    EXPECT_EQ(window.buttons("Move down").size(), 1U);
}

}  // namespace
}  // namespace noonward::test
