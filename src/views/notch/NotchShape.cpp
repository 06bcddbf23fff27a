#include "views/notch/NotchShape.h"

#include <algorithm>

namespace noonward {

QPainterPath NotchShape::path(const QRectF& rect) const {
    const double s = shoulder;
    const double r = std::min(radius, rect.height() / 2);
    const double left = rect.left();
    const double right = rect.right();
    const double top = rect.top();
    const double bottom = rect.bottom();

    QPainterPath path(rect.topLeft());
    path.quadTo(left + s, top, left + s, top + s);
    path.lineTo(left + s, bottom - r);
    path.quadTo(left + s, bottom, left + s + r, bottom);
    path.lineTo(right - s - r, bottom);
    path.quadTo(right - s, bottom, right - s, bottom - r);
    path.lineTo(right - s, top + s);
    path.quadTo(right - s, top, right, top);
    path.closeSubpath();
    return path;
}

kit::Shape NotchShape::fill(kit::Colour colour) const {
    return kit::path({shoulder, radius},
                     [](const QRectF& rect, const std::vector<double>& numbers) {
                         return NotchShape{numbers[0], numbers[1]}.path(rect);
                     })
        .fill(colour);
}

}  // namespace noonward
