#pragma once

#include <QImage>

#include "kit/Placed.h"
#include "kit/Tiles.h"

namespace kit {

/// Paints a laid-out tree, `scale` pixels a point, on a transparent ground. The picture is the
/// root's size in points times the scale, rounded up.
QImage paintOffScreen(const Placed& root, double scale, Tiles& tiles);
/// Only, and all, that lies in `part`, in the root's points.
QImage paintOffScreen(const Placed& root, const QRectF& part, double scale, Tiles& tiles);

/// Lays a view out in its ideal size and paints it.
QImage renderOffScreen(const View& view, const Environment& environment, double scale);

}  // namespace kit
