#pragma once

#include <QRectF>
#include <QSizeF>
#include <limits>
#include <optional>

#include "kit/Colour.h"
#include "kit/Font.h"

namespace kit {

/// What a parent offers a child, in points; an absent side asks for the child's ideal length.
struct Proposal {
    std::optional<double> width;
    std::optional<double> height;

    bool operator==(const Proposal&) const = default;
};

inline constexpr double infinite = std::numeric_limits<double>::infinity();

/// What flows down the tree until a view sets something else.
struct Environment {
    Font font;
    Colour colour;

    bool operator==(const Environment&) const = default;
};

enum class Horizontal { leading, centre, trailing };
enum class Vertical { top, centre, bottom, firstBaseline };

struct Alignment {
    Horizontal horizontal = Horizontal::centre;
    Vertical vertical = Vertical::centre;
};

inline constexpr Alignment topLeading{Horizontal::leading, Vertical::top};
inline constexpr Alignment topCentre{Horizontal::centre, Vertical::top};
inline constexpr Alignment leading{Horizontal::leading, Vertical::centre};
inline constexpr Alignment centred{Horizontal::centre, Vertical::centre};
inline constexpr Alignment trailing{Horizontal::trailing, Vertical::centre};

/// Space around a view in points: `horizontal` counts on both sides, beside `leading`, `trailing`.
struct Insets {
    double horizontal = 0;
    double vertical = 0;
    double leading = 0;
    double top = 0;
    double trailing = 0;
    double bottom = 0;

    double left() const { return horizontal + leading; }
    double right() const { return horizontal + trailing; }
    double above() const { return vertical + top; }
    double below() const { return vertical + bottom; }
};

/// A size a view is held to. Without an exact length a side follows the content, at least its
/// minimum; `maxWidth = infinite` takes what is offered.
struct Frame {
    std::optional<double> width;
    std::optional<double> height;
    std::optional<double> minWidth;
    std::optional<double> minHeight;
    std::optional<double> maxWidth;
    Alignment alignment = centred;
};

/// Where a child of `size` goes inside `space`. First baseline counts as top here.
QPointF aligned(const QRectF& space, const QSizeF& size, Alignment alignment);

}  // namespace kit
