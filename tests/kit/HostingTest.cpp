#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QWheelEvent>

#include "kit/Accessibility.h"
#include "kit/HostingWindow.h"
#include "kit/Scroll.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "kit/TextField.h"

namespace kit {
namespace {

TEST(Hosting, AButtonIsPressedWhereItIsReleased) {
    int presses = 0;
    int other = 0;
    const auto body = [&] {
        return hstack({.spacing = 10}, {box(20, 20).button([&] { ++presses; }),
                                        box(20, 20).button([&] { ++other; })});
    };
    Window window(body);
    window.click({10, 10});
    EXPECT_EQ(presses, 1);
    window.mouse(QEvent::MouseButtonPress, {10, 10});
    window.mouse(QEvent::MouseButtonDblClick, {10, 10});
    window.mouse(QEvent::MouseButtonRelease, {10, 10});
    EXPECT_EQ(presses, 2) << "the second of two quick presses";
    window.mouse(QEvent::MouseButtonPress, {10, 10});
    window.mouse(QEvent::MouseButtonRelease, {25, 10});
    window.mouse(QEvent::MouseButtonPress, {10, 10});
    window.mouse(QEvent::MouseButtonRelease, {40, 10});
    EXPECT_EQ(presses, 2);
    EXPECT_EQ(other, 0);
    // A tree built anew between press and release is the same button.
    window.mouse(QEvent::MouseButtonPress, {10, 10});
    window.view.invalidate();
    window.view.refresh();
    window.mouse(QEvent::MouseButtonRelease, {10, 10});
    EXPECT_EQ(presses, 3);
    window.view.setMargins({5, 5, 5, 5});
    window.click({3, 10});
    EXPECT_EQ(presses, 3);
    window.click({24, 10});
    EXPECT_EQ(presses, 4) << "margins move the view";
}

TEST(Hosting, IsBuiltAnewOnceATurnOrWhenAsked) {
    int built = 0;
    double width = 20;
    Window window([&] {
        ++built;
        return box(width, 20);
    });
    QApplication::processEvents();
    built = 0;
    width = 30;
    window.view.invalidate();
    window.view.invalidate();
    EXPECT_EQ(window.view.fittingSize().width(), 30);
    QApplication::processEvents();
    EXPECT_EQ(built, 1);
}

TEST(Hosting, TellsHoverFromTheInnermostOut) {
    std::vector<std::string> said;
    const auto tell = [&](const char* name) {
        return [&said, name](std::optional<Hover> over) {
            said.push_back(name + (over ? " " + std::to_string(std::lround(over->at.x())) +
                                              (over->onControl ? " on a control" : "")
                                        : " left"));
        };
    };
    Window window([&] {
        return hstack({.spacing = 10}, {box(20, 20).onHover(tell("a")), box(20, 20).button([] {})})
            .onHover(tell("all"));
    });
    using Said = std::vector<std::string>;
    window.mouse(QEvent::MouseMove, {5, 5}, Qt::NoButton);
    EXPECT_EQ(std::exchange(said, {}), (Said{"all 5", "a 5"}));
    window.mouse(QEvent::MouseMove, {35, 5}, Qt::NoButton);
    EXPECT_EQ(std::exchange(said, {}), (Said{"a left", "all 35 on a control"}));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&window.view, &leave);
    EXPECT_EQ(said, Said{"all left"});
}

// What a model does that stores every edit trimmed.
struct Edited {
    std::string stored;
    bool shown = true;
    int submitted = 0;

    View body(FirstClickHostingView** view) {
        return vstack(
            {}, {box(100, 10), when(shown, [&] {
                     return textField(
                         {.text = stored,
                          .placeholder = "a name",
                          .onEdit =
                              [this, view](const std::string& typed) {
                                  stored = QString::fromStdString(typed).trimmed().toStdString();
                                  (*view)->invalidate();
                              },
                          .onSubmit = [this] { ++submitted; },
                          .focusOnAppear = true});
                 })});
    }
};

TEST(Hosting, AFieldKeepsWhatIsTypedThroughEveryRebuild) {
    Edited edited;
    FirstClickHostingView* view = nullptr;
    Window window([&] { return edited.body(&view); });
    view = &window.view;
    auto* field = window.view.findChild<QLineEdit*>();
    ASSERT_TRUE(field);
    ASSERT_EQ(QApplication::focusWidget(), field);
    for (const QChar letter : QStringLiteral("New York")) {
        window.key(Qt::Key_A, letter);
        window.view.refresh();
    }
    EXPECT_EQ(field->text(), "New York") << "the space at the end of a trimmed text is kept";
    EXPECT_EQ(edited.stored, "New York");
    EXPECT_EQ(window.view.findChildren<QLineEdit*>().size(), 1);
    window.key(Qt::Key_Return, "\r");
    EXPECT_EQ(edited.submitted, 1);

    window.view.setFocus();
    edited.stored = "Boston";
    window.view.invalidate();
    window.view.refresh();
    EXPECT_EQ(field->text(), "Boston") << "without the focus it follows the model";

    field->setFocus();
    edited.shown = false;
    window.view.invalidate();
    window.view.refresh();
    EXPECT_EQ(QApplication::focusWidget(), &window.view) << "the keys do not go astray";
}

TEST(Hosting, AFieldInMotionKeepsTheKeys) {
    Edited edited;
    FirstClickHostingView* view = nullptr;
    double x = 0;
    Window window([&] { return edited.body(&view).offset(x, 0); });
    view = &window.view;
    window.animations.withAnimation(spring(10, 1), [&] {
        x = 50;
        window.view.invalidate();
    });
    auto* field = window.view.findChild<QLineEdit*>();
    EXPECT_FALSE(window.view.rect().intersects(field->geometry())) << "its text is painted";
    window.key(Qt::Key_7, "7");
    EXPECT_EQ(edited.stored, "7");
}

// Four boxes of 30 and a field below, in room for 50.
TEST(Hosting, ScrollsByWheelAndByFocus) {
    double position = 0;
    Window* self = nullptr;
    const auto field = [] { return textField({.text = "x", .placeholder = "a name"}); };
    Window window([&] {
        return scroll(vstack({}, {box(60, 30), box(60, 30), box(60, 30), field(), field()}),
                      position,
                      [&](double to) {
                          position = to;
                          self->view.invalidate();
                      })
            .frame({.width = 60, .height = 50});
    });
    self = &window;
    const double most = 90 + 2 * metrics(environment.font).lineHeight - 50;
    const auto wheel = [&](int units) {
        QWheelEvent event({10, 10}, window.view.mapToGlobal(QPointF(10, 10)), {}, {0, units},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&window.view, &event);
        window.view.refresh();
        return position;
    };
    EXPECT_EQ(wheel(120), 0) << "nothing above";
    EXPECT_EQ(wheel(-60), 24);
    EXPECT_EQ(wheel(-1200), most);
    EXPECT_EQ(wheel(1200), 0);

    const auto fields = window.view.findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_FALSE(window.view.rect().intersects(fields[1]->geometry())) << "scrolled out of sight";
    fields[0]->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(position, most - metrics(environment.font).lineHeight + scrollFade);
    fields[1]->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(position, most);
    window.view.refresh();
    EXPECT_TRUE(window.view.rect().contains(fields[1]->geometry().center()));
}

// Boxes of 30, one below the other, in room for 50; the last of them wants to be seen.
TEST(Hosting, ScrollsToWhatAppearsAndForgetsWhereThereIsNothing) {
    double position = 0;
    int boxes = 1;
    Window* self = nullptr;
    Window window([&] {
        Views all(static_cast<std::size_t>(boxes), box(60, 30));
        all.back() = all.back().revealed();
        return scroll(vstack({}, all), position,
                      [&](double to) {
                          position = to;
                          self->view.invalidate();
                      })
            .frame({.width = 60, .height = 50});
    });
    self = &window;
    const auto show = [&](int count) {
        boxes = count;
        window.view.invalidate();
        QApplication::processEvents();
        return position;
    };
    EXPECT_EQ(show(4), 70);
    EXPECT_EQ(show(4), 70);
    position = 5;
    EXPECT_EQ(show(4), 5) << "it has been there before";
    EXPECT_EQ(show(2), 10);
    position = 70;
    EXPECT_EQ(show(1), 0);
    EXPECT_EQ(show(5), 100);
}

TEST(Hosting, ADateIsSetPartByPart) {
    QDate day(2026, 2, 3);
    Window window([&] { return dateField({.day = day, .onChange = [&](QDate to) { day = to; }}); });
    auto* field = window.view.findChild<QDateEdit*>();
    ASSERT_TRUE(field);
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::DaySection);
    window.key(Qt::Key_Up, {});
    EXPECT_EQ(day, QDate(2026, 2, 4));
}

TEST(Hosting, AMenuOutlivesItsWindow) {
    std::vector<std::string> chosen;
    Window window([&] {
        return box(50, 50).contextMenu({{"Places & appearance…", [&] { chosen.emplace_back("p"); }},
                                        {},
                                        {"Quit", [&] { chosen.emplace_back("q"); }}});
    });
    window.mouse(QEvent::MouseButtonPress, {10, 10}, Qt::RightButton);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    window.view.hide();
    EXPECT_TRUE(menu->isVisible());
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions().at(0)->text(), "Places && appearance…");
    EXPECT_TRUE(menu->actions().at(1)->isSeparator());
    menu->actions().at(2)->trigger();
    menu->close();
    QApplication::processEvents();
    EXPECT_EQ(chosen, std::vector<std::string>{"q"});
}

TEST(Hosting, ScreenReadersSeeEveryButtonAndText) {
    installAccessibility();
    int pressed = 0;
    bool shown = true;
    Window window([&] {
        return hstack({.spacing = 5},
                      {text("London"),
                       when(shown,
                            [&] {
                                return text("Copy")
                                    .padding({.horizontal = 4})
                                    .button([&] { ++pressed; })
                                    .tooltip("Copies it");
                            }),
                       box(20, 20).button([&] { pressed += 10; }).tooltip("Next day (])")});
    });
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&window.view);
    ASSERT_TRUE(view);
    ASSERT_EQ(view->childCount(), 3);
    QAccessibleInterface* copy = view->child(1);
    EXPECT_EQ(view->child(0)->text(QAccessible::Name), "London");
    EXPECT_EQ(view->child(0)->role(), QAccessible::StaticText);
    EXPECT_EQ(copy->text(QAccessible::Name), "Copy");
    EXPECT_EQ(copy->text(QAccessible::Help), "Copies it");
    EXPECT_EQ(view->child(2)->text(QAccessible::Name), "Next day (])");
    EXPECT_EQ(copy->parent(), view);
    EXPECT_EQ(view->indexOfChild(view->child(2)), 2);
    const QPoint middle = copy->rect().center();
    EXPECT_EQ(view->childAt(middle.x(), middle.y()), copy);
    ASSERT_TRUE(copy->actionInterface());
    copy->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, 1);

    const QAccessible::Id id = QAccessible::uniqueId(copy);
    QAccessible::setActive(true);
    window.view.invalidate();
    window.view.refresh();
    EXPECT_EQ(QAccessible::accessibleInterface(id), copy) << "held over a rebuild";
    EXPECT_TRUE(copy->isValid());
    shown = false;
    window.view.invalidate();
    window.view.refresh();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(view->childCount(), 2);
    QAccessible::setActive(false);
}

// They are told in the middle of hiding a window, and ask back: new fields would be made in there.
TEST(Hosting, ScreenReadersBuildNothing) {
    installAccessibility();
    int built = 0;
    Window window([&] {
        ++built;
        return box(20, 20).button([] {}, PressKeys::space);
    });
    QAccessible::setActive(true);
    window.view.invalidate();
    const int before = built;
    window.view.hide();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.view)->childCount(), 1);
    EXPECT_EQ(built, before);
    QAccessible::setActive(false);
}

}  // namespace
}  // namespace kit
