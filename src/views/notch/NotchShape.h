#pragma once

#include <QPainterPath>

#include "kit/Shapes.h"

namespace noonward {

/// The outline of the notch: its top corners flare outwards to the screen's edge, its bottom
/// corners are round. Both sizes, in points, can glide.
struct NotchShape {
    double shoulder = 0;  ///< width and height of each flare; 0: none
    double radius = 0;    ///< of the bottom corners, at most half the height

    QPainterPath path(const QRectF& rect) const;

    kit::Shape fill(kit::Colour colour) const;
};

}  // namespace noonward
