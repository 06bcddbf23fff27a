#pragma once

#include <QImage>
#include <QPainter>
#include <functional>
#include <optional>

#include "kit/Placed.h"
#include "kit/Tiles.h"

namespace kit {

/// What the user is at, of what is painted; nothing in pictures.
struct Attention {
    std::optional<Id> focused;  ///< the field or button that has the keys
    std::optional<Id> leftOut;  ///< the field that the real one, over the picture, shows itself
    std::optional<Id> hovered;  ///< the control under the pointer
    std::optional<Id> held;     ///< the control that the pointer holds down

    bool operator==(const Attention&) const = default;
};

/// One pass of painting a placed tree onto a painter, in points from the root's corner.
class Painting {
 public:
    Painting(QPainter& painter, Tiles& tiles, const QRectF& clip)
        : painter_(painter), tiles_(tiles), clip_(clip) {}

    QPainter& painter() { return painter_; }
    Tiles& tiles() { return tiles_; }

    /// Outside of this nothing is seen, in points.
    const QRectF& clip() const { return clip_; }

    /// Device pixels per point, horizontally.
    double scale() const;

    /// The rectangle with its edges moved to the nearest device pixels, so that they stay sharp.
    QRectF aligned(const QRectF& rect) const;

    void setAttention(const Attention& attention) { attention_ = attention; }
    const Attention& attention() const { return attention_; }

    /// A painting of the same pass onto another painter.
    Painting inside(QPainter& painter, const QRectF& clip) const {
        Painting result(painter, tiles_, clip);
        result.attention_ = attention_;
        return result;
    }

    /// Paints a placed node unless nothing of it lies inside the clip.
    void paint(const Placed& placed);
    void paintChildren(const Placed& placed);

    /// Runs `draw` with the clip narrowed to a rectangle.
    void clipped(const QRectF& rect, const std::function<void(Painting&)>& draw);

    /// Runs `draw` and lays what it draws over what is there, with its opacity multiplied.
    void faded(const QRectF& bounds, double opacity, const std::function<void(Painting&)>& draw);

    /// Draws into a picture of its own, lets `finish` work on it, and lays it over what is there.
    /// `reach` is how far, in points, `finish` carries what is drawn: that much is drawn beyond
    /// the clip as well.
    void layer(const QRectF& bounds, const std::function<void(Painting&)>& draw,
               const std::function<void(QPainter&, QImage&)>& finish, double reach = 0);

 private:
    QPainter& painter_;
    Tiles& tiles_;
    QRectF clip_;
    Attention attention_;
};

}  // namespace kit
