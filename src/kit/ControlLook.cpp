#include "kit/ControlLook.h"

#include <algorithm>
#include <cmath>

namespace kit {
namespace {

constexpr double reach = 3;  // points around a control
constexpr double groundlessRadius = 6;
constexpr double leastBox = 20;  // lower than that it is a line of text, which wants air
constexpr double washOpacity = 0.12;
constexpr double heldOpacity = 0.6;
constexpr double ringWidth = 1.5;

bool isSameRect(const QRectF& one, const QRectF& other) {
    constexpr double noise = 0.01;
    return std::abs(one.left() - other.left()) < noise &&
           std::abs(one.top() - other.top()) < noise &&
           std::abs(one.right() - other.right()) < noise &&
           std::abs(one.bottom() - other.bottom()) < noise;
}

const Placed* groundOf(const Placed& control) {
    return find(control, [&](const Placed& below) {
        return below.node->shape() && isSameRect(below.rect, control.rect);
    });
}

// The text or symbol in it; a control of shapes alone has the colour that flows down to it.
Colour inkOf(const Placed& control) {
    const Placed* ink = find(control, [](const Placed& below) {
        return below.children.empty() && !below.node->shape();
    });
    return (ink ? *ink : control).environment.colour;
}

}  // namespace

Shape outlineOf(const Placed& control) {
    const Placed* ground = groundOf(control);
    return ground ? *ground->node->shape() : roundedRectangle(groundlessRadius);
}

QRectF attentionRect(const QRectF& control) {
    return control.adjusted(-reach, -reach, reach, reach);
}

// Whatever ground it stands on: a wash in the colour of what is read on it is seen, and leaves that
// as it is.
void paintControl(const Placed& control, Painting& painting) {
    if (painting.attention().held == control.id) {
        return painting.faded(control.bounds, heldOpacity,
                              [&](Painting& inside) { inside.paintChildren(control); });
    }
    painting.paintChildren(control);
    if (painting.attention().hovered != control.id) return;
    const bool isLine = !groundOf(control) && control.rect.height() < leastBox;
    const QRectF rect = painting.aligned(isLine ? attentionRect(control.rect) : control.rect);
    painting.painter().fillPath(outlineOf(control).path(rect),
                                inkOf(control).opacity(washOpacity).qcolor());
}

// Dark within light is seen on any ground.
void paintFocusRing(QPainter& painter, const Shape& outline, const QRectF& control) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    double inset = ringWidth / 2 - reach;
    for (const Qt::GlobalColor colour : {Qt::white, Qt::black}) {
        painter.setPen(QPen(colour, ringWidth));
        painter.drawPath(outline.path(control, inset));
        inset += ringWidth;
    }
    painter.restore();
}

void paintFocusedDate(const Placed& box, Painting& painting) {
    const Placed* date = find(box, [](const Placed& below) { return below.node->dateField(); });
    if (date && painting.attention().focused == date->id)
        paintFocusRing(painting.painter(), outlineOf(box), painting.aligned(box.rect));
}

}  // namespace kit
