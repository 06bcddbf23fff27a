#include <QLinearGradient>
#include <algorithm>
#include <cmath>

#include "kit/Blur.h"
#include "kit/Painting.h"
#include "kit/Shapes.h"

namespace kit {
namespace {

template <typename N, typename... Args>
View wrap(const View& child, Args&&... args) {
    return child ? View(std::make_shared<N>(child, std::forward<Args>(args)...)) : View();
}

void multiplyAlpha(QPainter& painter, const QRectF& rect, const QBrush& brush) {
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(rect, brush);
}

class OpacityNode final : public Wrapper {
 public:
    OpacityNode(View child, double opacity)
        : Wrapper(std::move(child)), opacity_(std::clamp(opacity, 0.0, 1.0)) {}

    void paint(const Placed& self, Painting& painting) const override {
        if (opacity_ <= 0) return;
        if (opacity_ >= 1) return painting.paintChildren(self);
        painting.layer(
            self.bounds, [&](Painting& inside) { inside.paintChildren(self); },
            [&](QPainter& painter, QImage& image) {
                // All of the picture: an edge between pixels would be faded by half.
                painter.resetTransform();
                multiplyAlpha(painter, image.rect(), black.opacity(opacity_).qcolor());
            });
    }
    std::string description() const override { return "opacity"; }

 private:
    double opacity_;
};

class ScaleNode final : public Wrapper {
 public:
    ScaleNode(View child, double x, double y, Alignment anchor)
        : Wrapper(std::move(child)), x_(x), y_(y), anchor_(anchor) {}

    void paint(const Placed& self, Painting& painting) const override {
        if (x_ <= 0 || y_ <= 0) return;
        const QPointF about = aligned(self.rect, QSizeF(0, 0), anchor_);
        QPainter& painter = painting.painter();
        painter.save();
        painter.translate(about);
        painter.scale(x_, y_);
        painter.translate(-about);
        Painting inside(painter, painting.tiles(), self.bounds);
        inside.paintChildren(self);
        painter.restore();
    }
    std::string description() const override { return "scale"; }

 private:
    double x_;
    double y_;
    Alignment anchor_;
};

// Only the corners of an outline can be half covered: the rest is drawn straight, and the corners
// through small layers that are cut with smooth edges.
class ClipNode final : public Wrapper {
 public:
    ClipNode(View child, Shape shape) : Wrapper(std::move(child)), shape_(std::move(shape)) {}

    void paint(const Placed& self, Painting& painting) const override {
        const QRectF rect = painting.aligned(self.rect);
        const std::optional<double> corner = shape_.cornerSquare(rect);
        if (!corner) return cut(self, painting, rect, rect);

        const double side = *corner;
        const QRectF middle = rect.adjusted(0, side, 0, -side);
        const auto straight = [&](const QRectF& part) {
            painting.clipped(part, [&](Painting& inside) { inside.paintChildren(self); });
        };
        straight(middle);
        if (side <= 0) return;
        straight({rect.left() + side, rect.top(), rect.width() - 2 * side, side});
        straight({rect.left() + side, rect.bottom() - side, rect.width() - 2 * side, side});
        for (const double x : {rect.left(), rect.right() - side}) {
            for (const double y : {rect.top(), rect.bottom() - side}) {
                cut(self, painting, rect, {x, y, side, side});
            }
        }
    }
    std::string description() const override { return "clip"; }

 private:
    void cut(const Placed& self, Painting& painting, const QRectF& whole,
             const QRectF& corner) const {
        const QRectF part = painting.aligned(corner);
        painting.layer(
            part,
            [&](Painting& inside) {
                inside.clipped(part, [&](Painting& clipped) { clipped.paintChildren(self); });
            },
            [&](QPainter& painter, QImage&) {
                QPainterPath outside;
                outside.addRect(part.adjusted(-1, -1, 1, 1));
                outside -= shape_.path(whole);
                painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
                painter.fillPath(outside, Qt::black);
            });
    }

    Shape shape_;
};

// Between the first and the last opaque stop nothing is to be done: only the margins take layers.
class MaskNode final : public Wrapper {
 public:
    MaskNode(View child, std::vector<MaskStop> stops)
        : Wrapper(std::move(child)), stops_(std::move(stops)) {}

    void paint(const Placed& self, Painting& painting) const override {
        const QRectF rect = self.rect;
        double opaqueFrom = 1;
        double opaqueUntil = 0;
        for (const MaskStop& stop : stops_) {
            if (stop.opacity < 1) continue;
            opaqueFrom = std::min(opaqueFrom, stop.position);
            opaqueUntil = std::max(opaqueUntil, stop.position);
        }
        if (opaqueFrom >= opaqueUntil) return faded(self, painting, rect);
        const double from = rect.left() + opaqueFrom * rect.width();
        const double until = rect.left() + opaqueUntil * rect.width();
        painting.clipped({from, rect.top(), until - from, rect.height()},
                         [&](Painting& inside) { inside.paintChildren(self); });
        faded(self, painting, {rect.left(), rect.top(), from - rect.left(), rect.height()});
        faded(self, painting, {until, rect.top(), rect.right() - until, rect.height()});
    }
    std::string description() const override { return "mask"; }

 private:
    void faded(const Placed& self, Painting& painting, const QRectF& part) const {
        QLinearGradient gradient(self.rect.left(), 0, self.rect.right(), 0);
        for (const MaskStop& stop : stops_) {
            gradient.setColorAt(stop.position, black.opacity(stop.opacity).qcolor());
        }
        const QRectF bounds = painting.aligned(part);
        painting.layer(
            bounds, [&](Painting& inside) { inside.paintChildren(self); },
            [&](QPainter& painter, QImage&) { multiplyAlpha(painter, bounds, gradient); });
    }

    std::vector<MaskStop> stops_;
};

class ShadowNode final : public Wrapper {
 public:
    ShadowNode(View child, Colour colour, double radius)
        : Wrapper(std::move(child)), colour_(colour), radius_(radius) {}

    double overflow() const override { return std::ceil(radius_ * 1.5); }

    void paint(const Placed& self, Painting& painting) const override {
        painting.layer(
            self.bounds, [&](Painting& inside) { inside.paintChildren(self); },
            [&](QPainter& painter, QImage& image) {
                painter.end();
                // Only the outline glows, so one channel is enough.
                QImage outline = image.convertToFormat(QImage::Format_Alpha8);
                blur(outline, radius_ / 2 * painting.scale());
                image.fill(colour_.qcolor());
                QPainter colouring(&image);
                colouring.setCompositionMode(QPainter::CompositionMode_DestinationIn);
                colouring.drawImage(0, 0, outline);
            },
            overflow());
        painting.paintChildren(self);
    }
    std::string description() const override { return "shadow"; }

 private:
    Colour colour_;
    double radius_;
};

}  // namespace

View View::opacity(double opacity) const {
    return wrap<OpacityNode>(*this, opacity);
}
View View::scale(double x, double y, Alignment anchor) const {
    return wrap<ScaleNode>(*this, x, y, anchor);
}
View View::clip(const Shape& shape) const {
    return wrap<ClipNode>(*this, shape);
}
View View::mask(std::vector<MaskStop> stops) const {
    return wrap<MaskNode>(*this, std::move(stops));
}
View View::shadow(Colour colour, double radius) const {
    return wrap<ShadowNode>(*this, colour, radius);
}

}  // namespace kit
