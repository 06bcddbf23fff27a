#include "kit/OffScreen.h"

#include <cmath>

#include "kit/Painting.h"

namespace kit {

QImage paintOffScreen(const Placed& root, double scale, Tiles& tiles) {
    const QSize pixels(static_cast<int>(std::ceil(root.rect.width() * scale)),
                       static_cast<int>(std::ceil(root.rect.height() * scale)));
    if (pixels.isEmpty()) return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    Painting painting(painter, tiles, root.rect);
    painting.paint(root);
    return image;
}

QImage renderOffScreen(const View& view, const Environment& environment, double scale) {
    Tiles tiles;
    return paintOffScreen(layOut(view, environment), scale, tiles);
}

}  // namespace kit
