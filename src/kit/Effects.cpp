#include <QLinearGradient>
#include <algorithm>
#include <cmath>
#include <typeinfo>

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

// For nodes whose whole look is in their numbers.
bool sameNumbers(const Node& one, const Node& other) {
    return typeid(one) == typeid(other) && one.numbers() == other.numbers();
}

class OpacityNode final : public Wrapper {
 public:
    OpacityNode(View child, double opacity)
        : Wrapper(std::move(child)), opacity_(std::clamp(opacity, 0.0, 1.0)) {}

    void paint(const Placed& self, Painting& painting) const override {
        if (opacity_ <= 0) return;
        if (opacity_ >= 1) return painting.paintChildren(self);
        painting.faded(self.bounds, opacity_,
                       [&](Painting& inside) { inside.paintChildren(self); });
    }
    std::string description() const override { return "opacity"; }

    bool paintsLike(const Node& other) const override { return sameNumbers(*this, other); }
    std::vector<double> numbers() const override { return {opacity_}; }
    std::shared_ptr<const Node> withNumbers(const std::vector<double>& n) const override {
        return std::make_shared<OpacityNode>(child(), n[0]);
    }

 private:
    double opacity_;
};

class ScaleNode final : public Wrapper {
 public:
    ScaleNode(View child, double x, double y, Alignment anchor)
        : Wrapper(std::move(child)), x_(x), y_(y), anchor_(anchor) {}

    void paint(const Placed& self, Painting& painting) const override {
        if (x_ <= 0 || y_ <= 0) return;
        if (x_ == 1 && y_ == 1) return painting.paintChildren(self);
        // Drawn once as large as it is, and then as a picture: what is scaled is mostly on its way,
        // and there is a frame to be drawn every few milliseconds. What moves inside of it stands
        // still meanwhile.
        const Placed& content = self.children.front();
        const double scale = painting.scale();
        const QSize pixels = (content.bounds.size() * scale).toSize() + QSize(1, 1);
        const QImage& image = painting.tiles().whole(
            content.node, pixels, [&] { return picture(content, pixels, scale, painting); });
        QPainter& painter = painting.painter();
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(
            transform(self.rect).mapRect(QRectF(content.bounds.topLeft(), QSizeF(pixels) / scale)),
            image);
        painter.restore();
    }
    QRectF bounds(const Placed& self) const override {
        if (x_ <= 0 || y_ <= 0) return {self.rect.topLeft(), QSizeF(0, 0)};
        const QRectF drawn = transform(self.rect).mapRect(Wrapper::bounds(self));
        // The last of the picture's pixels is smeared when it is drawn larger.
        const double over = spreads() ? std::ceil(std::max(x_, y_)) : 0;
        return drawn.adjusted(-over, -over, over, over);
    }
    std::optional<QPointF> inChildren(const Placed& self, const QPointF& point) const override {
        if (x_ <= 0 || y_ <= 0) return std::nullopt;
        return transform(self.rect).inverted().map(point);
    }
    bool spreads() const override { return x_ != 1 || y_ != 1; }
    bool paintsLike(const Node& other) const override { return sameNumbers(*this, other); }
    std::vector<double> numbers() const override { return {x_, y_}; }
    std::shared_ptr<const Node> withNumbers(const std::vector<double>& n) const override {
        return std::make_shared<ScaleNode>(child(), n[0], n[1], anchor_);
    }
    std::string description() const override { return "scale"; }

 private:
    static QImage picture(const Placed& content, const QSize& pixels, double scale,
                          Painting& painting) {
        QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHints(painting.painter().renderHints());
        painter.scale(scale, scale);
        painter.translate(-content.bounds.topLeft());
        Painting inside = painting.inside(painter, content.bounds);
        inside.setAttention({});
        inside.paint(content);
        return image;
    }

    // From the children's points to the root's.
    QTransform transform(const QRectF& rect) const {
        const QPointF about = aligned(rect, QSizeF(0, 0), anchor_);
        return QTransform::fromTranslate(-about.x(), -about.y()) * QTransform::fromScale(x_, y_) *
               QTransform::fromTranslate(about.x(), about.y());
    }

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
    QRectF bounds(const Placed& self) const override { return self.rect; }
    bool cutsOff() const override { return true; }
    std::optional<QPointF> inChildren(const Placed& self, const QPointF& point) const override {
        return shape_.path(self.rect).contains(point) ? std::optional(point) : std::nullopt;
    }
    bool paintsItself() const override { return true; }
    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const ClipNode*>(&other);
        return same && same->shape_.looksLike(shape_);
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
    bool paintsItself() const override { return true; }
    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const MaskNode*>(&other);
        return same && same->stops_ == stops_;
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

    QRectF bounds(const Placed& self) const override {
        const double over = overflow();
        return Wrapper::bounds(self).adjusted(-over, -over, over, over);
    }

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
    bool spreads() const override { return true; }
    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const ShadowNode*>(&other);
        return same && same->colour_ == colour_ && same->radius_ == radius_;
    }
    std::string description() const override { return "shadow"; }

 private:
    double overflow() const { return std::ceil(radius_ * 1.5); }

    Colour colour_;
    double radius_;
};

class BlurNode final : public Wrapper {
 public:
    BlurNode(View child, double radius)
        : Wrapper(std::move(child)), radius_(std::max(radius, 0.0)) {}

    void paint(const Placed& self, Painting& painting) const override {
        if (radius_ <= 0) return painting.paintChildren(self);
        painting.layer(
            self.bounds, [&](Painting& inside) { inside.paintChildren(self); },
            [&](QPainter& painter, QImage& image) {
                painter.end();
                kit::blur(image, radius_ / 2 * painting.scale());
            },
            overflow());
    }
    QRectF bounds(const Placed& self) const override {
        const double over = overflow();
        return Wrapper::bounds(self).adjusted(-over, -over, over, over);
    }
    bool spreads() const override { return radius_ > 0; }
    bool paintsLike(const Node& other) const override { return sameNumbers(*this, other); }
    std::vector<double> numbers() const override { return {radius_}; }
    std::shared_ptr<const Node> withNumbers(const std::vector<double>& n) const override {
        return std::make_shared<BlurNode>(child(), n[0]);
    }
    std::string description() const override { return "blur"; }

 private:
    double overflow() const { return std::ceil(radius_ * 1.5); }

    double radius_;
};

}  // namespace

View View::blur(double radius) const {
    return wrap<BlurNode>(*this, radius);
}
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
