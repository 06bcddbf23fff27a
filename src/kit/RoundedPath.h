#pragma once

#include <QPainterPath>
#include <QRectF>

namespace kit {

enum class CornerStyle {
    circular,   ///< a quarter circle
    continuous  ///< curvature grows and fades smoothly along a longer stretch of the edges
};

struct CornerRadii {
    double topLeft = 0;
    double topRight = 0;
    double bottomRight = 0;
    double bottomLeft = 0;

    static constexpr CornerRadii all(double radius) { return {radius, radius, radius, radius}; }
    CornerRadii reduced(double by) const;
    bool operator==(const CornerRadii&) const = default;
};

/// The outline of a rectangle with rounded corners. A radius over half the shorter side is taken
/// as that half.
QPainterPath roundedPath(const QRectF& rect, const CornerRadii& radii, CornerStyle style);

/// How far from the corner, along each edge, rounding may reach.
double cornerReach(double radius, CornerStyle style);

}  // namespace kit
