#include "kit/Painting.h"

#include <cmath>

namespace kit {

double Painting::scale() const {
    return painter_.deviceTransform().m11();
}

QRectF Painting::aligned(const QRectF& rect) const {
    const QTransform toDevice = painter_.deviceTransform();
    if (toDevice.type() > QTransform::TxScale) return rect;
    const QRectF device = toDevice.mapRect(rect);
    const QPointF from(std::round(device.left()), std::round(device.top()));
    const QPointF to(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(from, to));
}

void Painting::paint(const Placed& placed) {
    if (placed.bounds.intersects(clip_)) placed.node->paint(placed, *this);
}

void Painting::paintChildren(const Placed& placed) {
    for (const Placed& child : placed.children)
        paint(child);
}

void Painting::clipped(const QRectF& rect, const std::function<void(Painting&)>& draw) {
    const QRectF inner = clip_ & aligned(rect);
    if (inner.isEmpty()) return;
    painter_.save();
    painter_.setClipRect(inner, Qt::IntersectClip);
    Painting narrowed(painter_, tiles_, inner);
    draw(narrowed);
    painter_.restore();
}

void Painting::layer(const QRectF& bounds, const std::function<void(Painting&)>& draw,
                     const std::function<void(QPainter&, QImage&)>& finish) {
    const QTransform toDevice = painter_.deviceTransform();
    const QRect device = toDevice.mapRect(bounds & clip_).toAlignedRect();
    if (device.isEmpty()) return;

    QImage image(device.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHints(painter_.renderHints());
        painter.setTransform(toDevice * QTransform::fromTranslate(-device.x(), -device.y()));
        Painting painting(painter, tiles_, bounds & clip_);
        draw(painting);
        painter.setOpacity(1);
        finish(painter, image);
    }
    painter_.drawImage(toDevice.inverted().mapRect(QRectF(device)), image);
}

}  // namespace kit
