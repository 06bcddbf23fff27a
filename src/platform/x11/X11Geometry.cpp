#include "platform/x11/X11Geometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace noonward {
namespace {

// Qt keeps a monitor's corner in pixels and scales from there: both systems meet in it.
QRectF pixelFrame(const QScreen& screen) {
    const QRect frame = screen.geometry();
    return {frame.topLeft(), QSizeF(frame.size()) * screen.devicePixelRatio()};
}

template <typename Holds>
const QScreen* screenThat(Holds holds) {
    for (const QScreen* screen : QGuiApplication::screens())
        if (holds(*screen)) return screen;
    return QGuiApplication::primaryScreen();
}

int firstPixelFrom(double edge) {
    return static_cast<int>(std::ceil(std::clamp(edge, -32768.0, 32767.0)));
}

}  // namespace

QRect toPixels(const QRectF& area) {
    const QScreen* screen = screenThat([middle = area.center()](const QScreen& each) {
        return QRectF(each.geometry()).contains(middle);
    });
    if (!screen) return {};
    const QPointF corner = screen->geometry().topLeft();
    const double scale = screen->devicePixelRatio();
    const QPointF from = corner + (area.topLeft() - corner) * scale;
    const QPointF to = corner + (area.bottomRight() - corner) * scale;
    const QPoint first(firstPixelFrom(from.x()), firstPixelFrom(from.y()));
    return {first, QSize(firstPixelFrom(to.x()) - first.x(), firstPixelFrom(to.y()) - first.y())};
}

QPointF toPoints(QPoint pixel) {
    const QScreen* screen =
        screenThat([pixel](const QScreen& each) { return pixelFrame(each).contains(pixel); });
    if (!screen) return pixel;
    const QPointF corner = screen->geometry().topLeft();
    return corner + (QPointF(pixel) - corner) / screen->devicePixelRatio();
}

}  // namespace noonward
