#include "kit/ButtonKeys.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

namespace kit {
namespace {

constexpr double ringWidth = 1.5;
constexpr double ringRadius = 9;

}  // namespace

ButtonKeys::ButtonKeys(Id button, QWidget& host) : QWidget(&host), button_(button) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ButtonKeys::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat()) return;
    const auto held = press;  // it may build another tree, without this button
    held();
}

void ButtonKeys::focusInEvent(QFocusEvent*) {
    tellFocus(true);
}

void ButtonKeys::focusOutEvent(QFocusEvent*) {
    tellFocus(false);
}

void ButtonKeys::tellFocus(bool has) {
    update();
    const auto held = focused;
    if (held) held(has);
}

// Dark within light is seen on any ground.
void ButtonKeys::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [colour, inset] : {std::pair(Qt::white, 0.75), std::pair(Qt::black, 2.25)}) {
        painter.setPen(QPen(colour, ringWidth));
        const QRectF ring = QRectF(rect()).marginsRemoved({inset, inset, inset, inset});
        painter.drawRoundedRect(ring, ringRadius - inset, ringRadius - inset);
    }
}

}  // namespace kit
