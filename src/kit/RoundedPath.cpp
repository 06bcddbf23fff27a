#include "kit/RoundedPath.h"

#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace kit {
namespace {

// How much of a quarter turn the curvature takes to build up and to fade; 0 is a plain circle.
constexpr double fullSmoothing = 0.6;

// One corner of the outline, seen as the top-right one: the path comes along the top edge and
// leaves down the right edge. A stretch of growing curvature, an arc, a stretch of fading
// curvature; `reach` is the distance from the corner at which the edge begins to bend.
struct Corner {
    double radius;
    double reach;
    double a, b, c, d;  // control distances of the bend
    double arc;         // the arc's extent along both axes
    double arcHandle;   // length of the arc's Bézier handles
    double arcAngle;    // in radians
};

Corner makeCorner(double radius, double room, CornerStyle style) {
    Corner corner{};
    corner.radius = std::min(radius, room);
    if (corner.radius <= 0) return corner;
    const double smoothing = style == CornerStyle::circular
                                 ? 0.0
                                 : std::clamp(room / corner.radius - 1, 0.0, fullSmoothing);
    constexpr double quarter = std::numbers::pi / 2;
    corner.reach = (1 + smoothing) * corner.radius;
    corner.arcAngle = quarter * (1 - smoothing);
    const double bend = (quarter - corner.arcAngle) / 2;  // the angle each bend turns
    corner.arc = std::sin(corner.arcAngle / 2) * corner.radius * std::numbers::sqrt2;
    corner.c = corner.radius * std::tan(bend / 2) * std::cos(bend);
    corner.d = corner.c * std::tan(bend);
    corner.b = (corner.reach - corner.arc - corner.c - corner.d) / 3;
    corner.a = 2 * corner.b;
    corner.arcHandle = 4.0 / 3.0 * std::tan(corner.arcAngle / 4) * corner.radius;
    return corner;
}

// Appends the corner at `at`, turned by quarter turns from the top-right one.
void appendCorner(QPainterPath& path, const QPointF& at, int quarterTurns, const Corner& corner) {
    QTransform turn;
    turn.translate(at.x(), at.y());
    turn.rotate(90.0 * quarterTurns);
    const auto point = [&turn](double x, double y) { return turn.map(QPointF(x, y)); };

    if (corner.radius <= 0) {
        path.lineTo(at);
        return;
    }
    double x = -corner.reach;
    double y = 0;
    path.lineTo(point(x, y));
    if (corner.c > 0) {
        path.cubicTo(point(x + corner.a, y), point(x + corner.a + corner.b, y),
                     point(x + corner.a + corner.b + corner.c, y + corner.d));
    }
    x += corner.a + corner.b + corner.c;
    y += corner.d;
    const double in = (std::numbers::pi / 2 - corner.arcAngle) / 2;
    const double out = in + corner.arcAngle;
    path.cubicTo(point(x + std::cos(in) * corner.arcHandle, y + std::sin(in) * corner.arcHandle),
                 point(x + corner.arc - std::cos(out) * corner.arcHandle,
                       y + corner.arc - std::sin(out) * corner.arcHandle),
                 point(x + corner.arc, y + corner.arc));
    x += corner.arc;
    y += corner.arc;
    if (corner.c > 0) {
        path.cubicTo(point(x + corner.d, y + corner.c),
                     point(x + corner.d, y + corner.b + corner.c),
                     point(x + corner.d, y + corner.a + corner.b + corner.c));
    }
}

}  // namespace

CornerRadii CornerRadii::reduced(double by) const {
    return {std::max(0.0, topLeft - by), std::max(0.0, topRight - by),
            std::max(0.0, bottomRight - by), std::max(0.0, bottomLeft - by)};
}

QPainterPath roundedPath(const QRectF& rect, const CornerRadii& radii, CornerStyle style) {
    const double room = std::min(rect.width(), rect.height()) / 2;
    const Corner topRight = makeCorner(radii.topRight, room, style);
    const Corner bottomRight = makeCorner(radii.bottomRight, room, style);
    const Corner bottomLeft = makeCorner(radii.bottomLeft, room, style);
    const Corner topLeft = makeCorner(radii.topLeft, room, style);

    QPainterPath path;
    path.moveTo(rect.left() + topLeft.reach, rect.top());
    appendCorner(path, rect.topRight(), 0, topRight);
    appendCorner(path, rect.bottomRight(), 1, bottomRight);
    appendCorner(path, rect.bottomLeft(), 2, bottomLeft);
    appendCorner(path, rect.topLeft(), 3, topLeft);
    path.closeSubpath();
    return path;
}

double cornerReach(double radius, CornerStyle style) {
    return style == CornerStyle::circular ? radius : radius * (1 + fullSmoothing);
}

}  // namespace kit
