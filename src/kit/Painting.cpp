#include "kit/Painting.h"

#include <cmath>

namespace kit {
namespace {

// Halves go the same way on both sides of zero: a layer shifts coordinates, and what lies half in
// it must not jump by a pixel there.
double nearestPixel(double device) {
    return std::floor(device + 0.5);
}

// Rounding noise must not cost a pixel more.
QRect coveredPixels(const QRectF& device) {
    constexpr double noise = 1e-6;
    return device.adjusted(noise, noise, -noise, -noise).toAlignedRect();
}

}  // namespace

double Painting::scale() const {
    return painter_.deviceTransform().m11();
}

QRectF Painting::aligned(const QRectF& rect) const {
    const QTransform toDevice = painter_.deviceTransform();
    if (toDevice.type() > QTransform::TxScale) return rect;
    const QRectF device = toDevice.mapRect(rect);
    const QPointF from(nearestPixel(device.left()), nearestPixel(device.top()));
    const QPointF to(nearestPixel(device.right()), nearestPixel(device.bottom()));
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
    Painting narrowed = this->inside(painter_, inner);
    draw(narrowed);
    painter_.restore();
}

void Painting::faded(const QRectF& bounds, double opacity,
                     const std::function<void(Painting&)>& draw) {
    layer(bounds, draw, [opacity](QPainter& painter, QImage& image) {
        // All of the picture: an edge between pixels would be faded by half.
        painter.resetTransform();
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(image.rect(), black.opacity(opacity).qcolor());
    });
}

void Painting::layer(const QRectF& bounds, const std::function<void(Painting&)>& draw,
                     const std::function<void(QPainter&, QImage&)>& finish, double reach) {
    const QTransform toDevice = painter_.deviceTransform();
    const QRectF drawn = bounds & clip_.adjusted(-reach, -reach, reach, reach);
    const QRect device = coveredPixels(toDevice.mapRect(drawn));
    if (device.isEmpty() || !bounds.intersects(clip_)) return;

    QImage image(device.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHints(painter_.renderHints());
        painter.setTransform(toDevice * QTransform::fromTranslate(-device.x(), -device.y()));
        Painting painting = inside(painter, drawn);
        draw(painting);
        painter.setOpacity(1);
        finish(painter, image);
    }
    painter_.drawImage(toDevice.inverted().mapRect(QRectF(device)), image);
}

}  // namespace kit
