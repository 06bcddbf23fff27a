#include "kit/Shapes.h"

#include <algorithm>
#include <cmath>

#include "kit/Painting.h"

namespace kit {
namespace {

const char* name(Shape::Kind kind) {
    switch (kind) {
        case Shape::Kind::rectangle:
            return "rectangle";
        case Shape::Kind::rounded:
            return "rounded";
        case Shape::Kind::capsule:
            return "capsule";
        case Shape::Kind::circle:
            return "circle";
        case Shape::Kind::path:
            return "path";
    }
    return "shape";
}

QRectF largestCircle(const QRectF& rect) {
    const double side = std::min(rect.width(), rect.height());
    return {rect.center().x() - side / 2, rect.center().y() - side / 2, side, side};
}

// Takes what it is offered; a shape has no size of its own.
class ShapeNode final : public Node {
 public:
    explicit ShapeNode(Shape shape) : shape_(std::move(shape)) {}

    QSizeF measure(const Proposal& proposal, const Environment&) const override {
        return {proposal.width.value_or(0), proposal.height.value_or(0)};
    }

    void paint(const Placed& self, Painting& painting) const override {
        const QRectF rect = painting.aligned(self.rect);
        QPainter& painter = painting.painter();
        if (shape_.fillColour() && shape_.fillColour()->alpha > 0) {
            if (shape_.kind() == Shape::Kind::rectangle) {
                painter.fillRect(rect, shape_.fillColour()->qcolor());
            } else {
                painter.fillPath(shape_.path(rect), shape_.fillColour()->qcolor());
            }
        }
        if (shape_.strokeColour() && shape_.strokeColour()->alpha > 0 &&
            !hasOnlyInside(rect, painting.clip())) {
            QPen pen(shape_.strokeColour()->qcolor(), shape_.strokeWidth());
            pen.setJoinStyle(Qt::MiterJoin);
            painter.strokePath(shape_.path(rect, shape_.strokeWidth() / 2), pen);
        }
    }

    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const ShapeNode*>(&other);
        return same && same->shape_.looksLike(shape_);
    }
    std::vector<double> numbers() const override { return shape_.numbers(); }
    std::shared_ptr<const Node> withNumbers(const std::vector<double>& numbers) const override {
        return std::make_shared<ShapeNode>(shape_.withNumbers(numbers));
    }

    const Shape* shape() const override { return &shape_; }

    std::string description() const override { return name(shape_.kind()); }

 private:
    // Whether all that is to be painted lies clear of the line and its corners: stroking a long
    // outline costs the same however little of it is seen.
    bool hasOnlyInside(const QRectF& rect, const QRectF& clip) const {
        const std::optional<double> corner = shape_.cornerSquare(rect);
        if (!corner) return false;
        const double line = shape_.strokeWidth() + 1;
        const double side = std::max(line, *corner);
        return rect.adjusted(side, line, -side, -line).contains(clip) ||
               rect.adjusted(line, side, -line, -side).contains(clip);
    }

    Shape shape_;
};

}  // namespace

Shape Shape::fill(Colour colour) const {
    Shape result = *this;
    result.fill_ = colour;
    return result;
}

Shape Shape::strokeInside(Colour colour, double width) const {
    Shape result = *this;
    result.stroke_ = colour;
    result.strokeWidth_ = width;
    return result;
}

bool Shape::looksLike(const Shape& other) const {
    return kind_ == other.kind_ && radii_ == other.radii_ && style_ == other.style_ &&
           numbers_ == other.numbers_ && fill_ == other.fill_ && stroke_ == other.stroke_ &&
           strokeWidth_ == other.strokeWidth_;
}

Shape Shape::withNumbers(const std::vector<double>& numbers) const {
    Shape result = *this;
    result.numbers_ = numbers;
    return result;
}

QPainterPath Shape::path(const QRectF& rect, double inset) const {
    const QRectF inner = rect.adjusted(inset, inset, -inset, -inset);
    QPainterPath result;
    switch (kind_) {
        case Kind::rectangle:
            result.addRect(inner);
            break;
        case Kind::rounded:
            return roundedPath(inner, radii_.reduced(inset), style_);
        case Kind::capsule:
            return roundedPath(inner, CornerRadii::all(std::min(inner.width(), inner.height()) / 2),
                               CornerStyle::circular);
        case Kind::circle:
            result.addEllipse(largestCircle(inner));
            break;
        case Kind::path:
            return path_(inner, numbers_);
    }
    return result;
}

std::optional<double> Shape::cornerSquare(const QRectF& rect) const {
    switch (kind_) {
        case Kind::rectangle:
            return 0;
        case Kind::rounded: {
            const double largest = std::max(std::max(radii_.topLeft, radii_.topRight),
                                            std::max(radii_.bottomLeft, radii_.bottomRight));
            const double half = std::min(rect.width(), rect.height()) / 2;
            return std::ceil(std::min(cornerReach(largest, style_), half));
        }
        case Kind::capsule:
            return std::min(rect.width(), rect.height()) / 2;
        case Kind::circle:
        case Kind::path:
            return std::nullopt;
    }
    return std::nullopt;
}

Shape::operator View() const {
    return View(std::make_shared<ShapeNode>(*this));
}

}  // namespace kit
