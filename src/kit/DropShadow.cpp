#include "kit/DropShadow.h"

#include <algorithm>
#include <cmath>

#include "kit/Blur.h"
#include "kit/Painting.h"
#include "kit/Shapes.h"

namespace kit {
namespace {

// Three boxes reach no farther than three deviations.
double spread(const DropShadow& shadow) {
    return std::ceil(shadow.blur * 1.5);
}

double cornerSide(const CornerRadii& radii) {
    const double largest = std::max(std::max(radii.topLeft, radii.topRight),
                                    std::max(radii.bottomLeft, radii.bottomRight));
    return std::ceil(cornerReach(largest, CornerStyle::continuous));
}

class DropShadowNode final : public Node {
 public:
    explicit DropShadowNode(const DropShadow& shadow) : shadow_(shadow) {}

    QSizeF measure(const Proposal& proposal, const Environment&) const override {
        return {proposal.width.value_or(0), proposal.height.value_or(0)};
    }

    QRectF bounds(const Placed& self) const override {
        const double out = spread(shadow_);
        return self.rect | self.rect.adjusted(-out, -out, out, out).translated(0, shadow_.below);
    }

    void paint(const Placed& self, Painting& painting) const override {
        const QRectF rect = painting.aligned(self.rect);
        QPainterPath around;
        around.addRect(self.bounds);
        around -= roundedPath(rect, shadow_.radii, CornerStyle::continuous);

        QPainter& painter = painting.painter();
        painter.save();
        painter.setClipPath(around, Qt::IntersectClip);
        drawNinePieces(painting, rect.translated(0, shadow_.below));
        painter.restore();
    }

    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const DropShadowNode*>(&other);
        return same && same->shadow_.radii == shadow_.radii &&
               same->shadow_.colour == shadow_.colour && same->shadow_.blur == shadow_.blur &&
               same->shadow_.below == shadow_.below;
    }

    std::string description() const override { return "drop shadow"; }

 private:
    // Blurring is dear: the shadow of the smallest such rectangle is kept, and its middle is
    // stretched. Shadows are smooth, one pixel a point is enough.
    void drawNinePieces(Painting& painting, const QRectF& rect) const {
        const double out = spread(shadow_);
        const double corner = out + cornerSide(shadow_.radii);
        const QImage& image = painting.tiles().get(key(), [&] { return draw(out, corner); });
        const double side = out + corner;  // of a corner piece, from the shadow's outer edge

        const QRectF whole = rect.adjusted(-out, -out, out, out);
        const double right = std::max(whole.left() + side, whole.right() - side);
        const double bottom = std::max(whole.top() + side, whole.bottom() - side);
        const double xs[] = {whole.left(), whole.left() + side, right, whole.right()};
        const double ys[] = {whole.top(), whole.top() + side, bottom, whole.bottom()};
        const double length = image.width();
        const double from[] = {0, side, length - side, length};

        QPainter& painter = painting.painter();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                const QRectF to(QPointF(xs[column], ys[row]), QPointF(xs[column + 1], ys[row + 1]));
                if (to.isEmpty() || !to.intersects(painting.clip())) continue;
                painter.drawImage(to, image,
                                  QRectF(QPointF(from[column], from[row]),
                                         QPointF(from[column + 1], from[row + 1])));
            }
        }
    }

    QImage draw(double out, double corner) const {
        const int length = static_cast<int>(2 * (out + corner)) + 2;
        QImage shade(length, length, QImage::Format_Alpha8);
        shade.fill(Qt::transparent);
        {
            QPainter painter(&shade);
            painter.setRenderHint(QPainter::Antialiasing);
            const QRectF inner = QRectF(shade.rect()).adjusted(out, out, -out, -out);
            painter.fillPath(roundedPath(inner, shadow_.radii, CornerStyle::continuous), Qt::black);
        }
        blur(shade, shadow_.blur / 2);
        QImage image(shade.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(shadow_.colour.qcolor());
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, shade);
        return image;
    }

    std::string key() const {
        const CornerRadii& r = shadow_.radii;
        std::string key =
            "drop shadow " + shadow_.colour.qcolor().name(QColor::HexArgb).toStdString();
        for (const double number :
             {r.topLeft, r.topRight, r.bottomRight, r.bottomLeft, shadow_.blur})
            key += ' ' + std::to_string(number);
        return key;
    }

    DropShadow shadow_;
};

}  // namespace

View dropShadow(const DropShadow& shadow) {
    return View(std::make_shared<DropShadowNode>(shadow));
}

Insets reach(const DropShadow& shadow) {
    const double out = spread(shadow);
    return {.horizontal = out,
            .top = std::max(0.0, out - shadow.below),
            .bottom = std::max(0.0, out + shadow.below)};
}

}  // namespace kit
