#include "kit/ButtonKeys.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

#include "kit/ControlLook.h"

namespace kit {

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

void ButtonKeys::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QPainter painter(this);
    paintFocusRing(painter, outline, QRectF(rect()).marginsRemoved(around));
}

}  // namespace kit
