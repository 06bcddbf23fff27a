#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>

namespace noonward {

/// The pixels of the root window whose position, in desktop points, lies in `area` (half open).
/// Each monitor has its own scale; the one that holds the area's middle counts, else the primary
/// one.
QRect toPixels(const QRectF& area);

/// The desktop point of a pixel of the root window.
QPointF toPoints(QPoint pixel);

}  // namespace noonward
