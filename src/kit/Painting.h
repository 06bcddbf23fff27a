#pragma once

#include <QImage>
#include <QPainter>
#include <functional>
#include <optional>

#include "kit/Placed.h"
#include "kit/Tiles.h"

namespace kit {

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

    /// The field that is left to the real one that lies over the picture.
    void leaveOut(std::optional<Id> field) { leftOut_ = field; }
    std::optional<Id> leftOut() const { return leftOut_; }

    /// A painting of the same pass onto another painter.
    Painting inside(QPainter& painter, const QRectF& clip) const {
        Painting result(painter, tiles_, clip);
        result.leftOut_ = leftOut_;
        return result;
    }

    /// Paints a placed node unless nothing of it lies inside the clip.
    void paint(const Placed& placed);
    void paintChildren(const Placed& placed);

    /// Runs `draw` with the clip narrowed to a rectangle.
    void clipped(const QRectF& rect, const std::function<void(Painting&)>& draw);

    /// Draws into a picture of its own, lets `finish` work on it, and lays it over what is there.
    /// `reach` is how far, in points, `finish` carries what is drawn: that much is drawn beyond
    /// the clip as well.
    void layer(const QRectF& bounds, const std::function<void(Painting&)>& draw,
               const std::function<void(QPainter&, QImage&)>& finish, double reach = 0);

 private:
    QPainter& painter_;
    Tiles& tiles_;
    QRectF clip_;
    std::optional<Id> leftOut_;
};

}  // namespace kit
