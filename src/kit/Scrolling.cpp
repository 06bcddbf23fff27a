#include "kit/Scrolling.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "kit/Scroll.h"

namespace kit {
namespace {

// Where it is now, and how far it can go, in points.
double position(const Placed& scrolled) {
    return scrolled.rect.top() - scrolled.children.front().rect.top();
}
double mostPosition(const Placed& scrolled) {
    return std::max(0.0, scrolled.children.front().rect.height() - scrolled.rect.height());
}

// Where not all of it can be seen, its beginning is.
void scrollIntoSight(const std::vector<const Placed*>& path, const QRectF& rect) {
    for (const Placed* outer : path) {
        if (!scrolls(*outer)) continue;
        const double down = std::max(0.0, rect.bottom() + scrollFade - outer->rect.bottom());
        const double most = rect.top() - outer->rect.top();  // that keeps its top in sight
        scrollBy(*outer, std::min(down, most));
    }
}

}  // namespace

bool scrolls(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->scrollTo;
}

void scrollBy(const Placed& scrolled, double points) {
    const double target = std::clamp(position(scrolled) + points, 0.0, mostPosition(scrolled));
    if (target == position(scrolled)) return;
    const auto scroll = scrolled.node->interaction()->scrollTo;
    scroll(target);
}

void scrollIntoSight(const Placed& root, Id id) {
    const auto path = pathTo(root, id);
    if (!path.empty()) scrollIntoSight(path, path.back()->rect);
}

void showAppeared(const Placed& root, std::set<Id>& shown) {
    std::set<Id> now;
    std::optional<Id> first;
    QRectF appeared;
    walk(root, [&](const Placed& placed) {
        const Interaction* interaction = placed.node->interaction();
        if (!interaction || !interaction->revealed) return;
        now.insert(placed.id);
        if (shown.contains(placed.id)) return;
        if (!first) first = placed.id;
        appeared |= placed.rect;
    });
    shown = std::move(now);
    if (first) scrollIntoSight(pathTo(root, *first), appeared);
}

void forgetLostPositions(const Placed& root) {
    walk(root, [](const Placed& placed) {
        if (!scrolls(placed)) return;
        const double most = mostPosition(placed);
        if (placed.node->interaction()->scrolled <= most) return;
        const auto scroll = placed.node->interaction()->scrollTo;
        scroll(most);
    });
}

std::vector<const Placed*> pathTo(const Placed& root, Id id) {
    if (root.id == id) return {&root};
    for (const Placed& child : root.children) {
        std::vector<const Placed*> path = pathTo(child, id);
        if (path.empty()) continue;
        path.insert(path.begin(), &root);
        return path;
    }
    return {};
}

}  // namespace kit
