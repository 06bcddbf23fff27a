#pragma once

#include <QPainterPath>
#include <functional>
#include <optional>
#include <vector>

#include "kit/RoundedPath.h"
#include "kit/View.h"

namespace kit {

/// An outline that fills the room it is given; drawn once it has a fill or a stroke. Used as a
/// View wherever one is asked for.
class Shape {
 public:
    enum class Kind { rectangle, rounded, capsule, circle, path };
    /// An outline in a rectangle, from numbers that can glide.
    using PathFunction =
        std::function<QPainterPath(const QRectF&, const std::vector<double>& numbers)>;

    explicit Shape(Kind kind) : kind_(kind) {}
    Shape(CornerRadii radii, CornerStyle style)
        : kind_(Kind::rounded), radii_(radii), style_(style) {}
    Shape(std::vector<double> numbers, PathFunction path)
        : kind_(Kind::path), path_(std::move(path)), numbers_(std::move(numbers)) {}

    Shape fill(Colour colour) const;
    /// A line whose outer edge is the outline, `width` points wide.
    Shape strokeInside(Colour colour, double width) const;

    /// The outline in a rectangle, `inset` points inside it.
    QPainterPath path(const QRectF& rect, double inset = 0) const;

    /// The part of `rect` that the outline surely covers whole, apart from squares of this side
    /// at the corners; nothing where that is not known.
    std::optional<double> cornerSquare(const QRectF& rect) const;

    /// Whether both draw the same in the same room. Free outlines do when their numbers are the
    /// same: their function must depend on nothing else.
    bool looksLike(const Shape& other) const;

    const std::vector<double>& numbers() const { return numbers_; }
    Shape withNumbers(const std::vector<double>& numbers) const;

    Kind kind() const { return kind_; }
    const std::optional<Colour>& fillColour() const { return fill_; }
    const std::optional<Colour>& strokeColour() const { return stroke_; }
    double strokeWidth() const { return strokeWidth_; }
    const CornerRadii& radii() const { return radii_; }

    operator View() const;  // a shape is a view: implicit on purpose
    View frame(Frame frame) const { return View(*this).frame(frame); }

 private:
    Kind kind_;
    CornerRadii radii_;
    CornerStyle style_ = CornerStyle::circular;
    PathFunction path_;
    std::vector<double> numbers_;
    std::optional<Colour> fill_;
    std::optional<Colour> stroke_;
    double strokeWidth_ = 0;
};

inline Shape rectangle() {
    return Shape(Shape::Kind::rectangle);
}
inline Shape capsule() {
    return Shape(Shape::Kind::capsule);
}
inline Shape circle() {
    return Shape(Shape::Kind::circle);
}
inline Shape path(std::vector<double> numbers, Shape::PathFunction outline) {
    return {std::move(numbers), std::move(outline)};
}
inline Shape roundedRectangle(double radius, CornerStyle style = CornerStyle::continuous) {
    return {CornerRadii::all(radius), style};
}
inline Shape roundedRectangle(CornerRadii radii, CornerStyle style = CornerStyle::continuous) {
    return {radii, style};
}

}  // namespace kit
