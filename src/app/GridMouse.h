#pragma once

#include <QPointF>
#include <optional>

#include "time/Instant.h"

namespace noonward {

class NotchUI;
class Store;

/// The left button over the ribbon's hours: a press proposes the hour under it, or takes hold of
/// the proposed meeting; moving drags it along. It sees each event before the views do. Points are
/// in the panel, in its points, from its top-left corner. Each answer tells whether the event is
/// used up.
class GridMouse {
 public:
    GridMouse(Store& store, NotchUI& ui);

    bool press(const QPointF& at);
    bool move(const QPointF& at);
    bool release();

 private:
    struct Drag {
        double x;      // of the pointer, when it began
        Instant from;  // start of the meeting then
    };

    bool listens() const;
    bool onGrid(const QPointF& at) const;
    bool onProposal(const QPointF& at) const;

    Store& store_;
    NotchUI& ui_;
    std::optional<Drag> drag_;
};

}  // namespace noonward
