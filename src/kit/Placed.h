#pragma once

#include <QRectF>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kit/Layout.h"
#include "kit/Node.h"

namespace kit {

/// Who a view is across rebuilds: the path of slots that leads to it from the root.
using Id = std::uint64_t;

/// A view with its place: what is painted, hit, dumped and read out. Rectangles are in points
/// from the root's top-left corner, half open.
struct Placed {
    std::shared_ptr<const Node> node;
    QRectF rect;
    QRectF bounds;  ///< what it and its children paint
    Id id = 0;
    Environment environment;
    std::vector<Placed> children;

    /// Places `view` as the child in `slot`; does nothing for an absent view.
    void add(std::uint64_t slot, const View& view, const QRectF& rect);
    void add(std::uint64_t slot, const View& view, const QRectF& rect, const Environment& env);
};

/// Lays a view out in its ideal size, or in `size`.
Placed layOut(const View& view, const Environment& environment);
Placed layOut(const View& view, const Environment& environment, const QSizeF& size);

/// The tree as text, a line a node: description and rectangle.
std::string dump(const Placed& root);

/// Calls `visit` for the node and everything below it, parents first.
void walk(const Placed& root, const std::function<void(const Placed&)>& visit);

/// The first node below (or at) `root`, parents first, that satisfies `test`; null without one.
const Placed* find(const Placed& root, const std::function<bool(const Placed&)>& test);

/// The nodes under a point from the root down to the innermost one that satisfies `test`; where
/// several do side by side, the one painted last. Empty when none does.
std::vector<const Placed*> hit(const Placed& root, const QPointF& point,
                               const std::function<bool(const Placed&)>& test);

}  // namespace kit
