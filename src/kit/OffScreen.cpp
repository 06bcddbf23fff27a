#include "kit/OffScreen.h"

#include <cmath>

#include "kit/Painting.h"

namespace kit {

QImage paintOffScreen(const Placed& root, double scale, Tiles& tiles) {
    return paintOffScreen(root, root.rect, scale, tiles);
}

QImage paintOffScreen(const Placed& root, const QRectF& part, double scale, Tiles& tiles) {
    const QSize pixels(static_cast<int>(std::ceil(part.width() * scale)),
                       static_cast<int>(std::ceil(part.height() * scale)));
    if (pixels.isEmpty()) return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    painter.translate(-part.topLeft());
    Painting painting(painter, tiles, part);
    painting.paint(root);
    return image;
}

QImage renderOffScreen(const View& view, const Environment& environment, double scale) {
    Tiles tiles;
    return paintOffScreen(layOut(view, environment), scale, tiles);
}

}  // namespace kit
