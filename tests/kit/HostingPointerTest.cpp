#include <gtest/gtest.h>

#include <QDateEdit>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>

#include "kit/Description.h"
#include "kit/Disclosure.h"
#include "kit/HostingWindow.h"
#include "kit/Stacks.h"
#include "kit/TextField.h"

namespace kit {
namespace {

// Boxes of 20, 20 apart, whose look is all of one colour.
TEST(Hosting, AControlShowsThatThePointerIsThere) {
    Window window([] {
        return hstack({.spacing = 20}, {box(20, 20).button([] {}), box(20, 20).toggle(true, [] {}),
                                        box(20, 20).disabledButton(), box(20, 20).onTap([] {})})
            .background(rectangle().fill(white))
            .colour(Colour::rgb(0xFF0000));
    });
    const auto look = [&](int x) { return window.view.grab().toImage().pixelColor(x, 10); };
    const auto move = [&](int x) { window.mouse(QEvent::MouseMove, QPointF(x, 10), Qt::NoButton); };
    for (const int control : {10, 50}) {
        move(control);
        const QColor hovered = look(control);
        EXPECT_GT(hovered.red(), 0) << "lighter";
        EXPECT_LT(hovered.red(), 64) << "a little";
        window.mouse(QEvent::MouseButtonPress, QPointF(control, 10));
        EXPECT_GT(look(control).blue(), 64) << "dimmed";
        move(30);
        EXPECT_EQ(look(control), Qt::black) << "released here it is not pressed";
        window.mouse(QEvent::MouseButtonRelease, QPointF(30, 10));
    }
    for (const int other : {90, 130}) {
        move(other);
        window.mouse(QEvent::MouseButtonPress, QPointF(other, 10));
        EXPECT_EQ(look(other), Qt::black);
        window.mouse(QEvent::MouseButtonRelease, QPointF(other, 10));
    }
    move(10);
    window.view.hide();
    window.view.show();
    EXPECT_EQ(look(10), Qt::black) << "nobody knows where the pointer is by now";
}

// Two boxes of 60 by 40 around fields of one line, and what can be dragged.
TEST(Hosting, ABoxIsItsFields) {
    const auto inBox = [](const View& field) {
        return field.padding({.horizontal = 8, .vertical = 12})
            .frame({.width = 120})
            .background(roundedRectangle(8).fill(white))
            .fieldBox()
            .padding({.horizontal = 8, .vertical = 8});
    };
    Window window([&] {
        return vstack({}, {inBox(textField({.text = "London", .placeholder = "a name"})),
                           inBox(dateField({.day = QDate(2026, 2, 3)})),
                           box(20, 20).cursor(Cursor::grab), box(20, 20)});
    });
    auto* text = window.view.findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
    auto* date = window.view.findChild<QDateEdit*>();
    ASSERT_TRUE(text && date);
    const double middle = window.view.width() / 2.0;
    const QPointF under(middle, text->geometry().bottom() + 6);
    window.click(under);
    EXPECT_TRUE(text->hasFocus());
    EXPECT_EQ(text->cursorPosition(), 6) << "where it was pressed";
    const QImage before = window.view.grab().toImage();
    window.click({date->geometry().left() - 5.0, date->geometry().top() - 6.0});
    EXPECT_TRUE(date->hasFocus());
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::DaySection);
    const QRect edge(0, date->geometry().top() - 15, window.view.width(), 3);
    EXPECT_NE(window.view.grab().toImage().copy(edge), before.copy(edge)) << "no ring";

    const double bottom = window.view.height();
    for (const auto& [at, shape] : {std::pair(under, Qt::IBeamCursor),
                                    {QPointF(middle, bottom - 30), Qt::OpenHandCursor},
                                    {QPointF(middle, bottom - 10), Qt::ArrowCursor}}) {
        window.mouse(QEvent::MouseMove, at, Qt::NoButton);
        EXPECT_EQ(window.view.cursor().shape(), shape) << at.y();
    }
}

TEST(Hosting, ATooltipGoesWithItsWindow) {
    Window window([] { return box(50, 50).tooltip("Next day (])"); });
    QHelpEvent help(QEvent::ToolTip, {10, 10}, window.view.mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(&window.view, &help);
    EXPECT_TRUE(QToolTip::isVisible());
    window.view.hide();
    EXPECT_FALSE(QToolTip::isVisible());
}

// A button on a circle of 24: near the corners of its square there is no ring.
TEST(Hosting, TheRingFollowsItsButton) {
    for (const auto& [ground, isSquare] :
         {std::pair(circle(), false), {capsule(), false}, {roundedRectangle(2), true}}) {
        Window window([&] {
            return box(0, 0)
                .frame({.width = 24, .height = 24})
                .background(ground.fill(white))
                .button([] {}, PressKeys::space)
                .padding({.horizontal = 6, .vertical = 6});
        });
        window.key(Qt::Key_Tab, "\t");
        const QImage seen = window.view.grab().toImage();
        EXPECT_EQ(seen.pixelColor(18, 5), Qt::black) << "the ring's inner line";
        EXPECT_EQ(seen.pixelColor(9, 5) == Qt::black, isSquare);
    }
}

// A line of 20 that opens over one of 10.
TEST(Hosting, WhatIsOpenedGlidesAndWhatIsShutIsNotThere) {
    bool isOpen = false;
    Window window([&] {
        return vstack(
            {}, {disclosure(box(20, 20).button([] {}, PressKeys::space), isOpen), box(20, 10)});
    });
    const auto turn = [&](const std::optional<Curve>& curve) {
        const auto change = [&] {
            isOpen = !isOpen;
            window.view.invalidate();
        };
        if (curve) return window.animations.withAnimation(*curve, change);
        change();
        window.view.refresh();
    };
    EXPECT_EQ(window.view.fittingSize().height(), 10);
    EXPECT_EQ(window.view.findChildren<QWidget*>().size(), 0) << "nothing to come to by Tab";
    EXPECT_EQ(elements(window.view.placed()).size(), 0U) << "nothing to be read out";
    turn(spring(100, 1));
    EXPECT_EQ(window.view.fittingSize().height(), 30);
    EXPECT_EQ(elements(window.view.placed()).size(), 1U);
    EXPECT_LT(window.view.picture(1).height(), 30) << "on its way";
    turn(std::nullopt);
    EXPECT_EQ(window.view.picture(1).height(), 10);
}

}  // namespace
}  // namespace kit
