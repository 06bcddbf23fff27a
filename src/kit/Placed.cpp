#include "kit/Placed.h"

#include <cstdio>

namespace kit {
namespace {

// The finaliser of SplitMix64: neighbouring slots of neighbouring parents must not meet.
Id childId(Id parent, std::uint64_t slot) {
    std::uint64_t mixed = parent + 0x9E3779B97F4A7C15ULL * (slot + 1);
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31);
}

void placeNode(Placed& self) {
    self.node->place(self);
    self.bounds = self.node->bounds(self);
}

void dump(const Placed& placed, int depth, std::string& out) {
    char rect[96];
    std::snprintf(rect, sizeof rect, " [%g %g %g %g]\n", placed.rect.x(), placed.rect.y(),
                  placed.rect.width(), placed.rect.height());
    out.append(static_cast<std::size_t>(depth) * 2, ' ');
    out += placed.node->description();
    out += rect;
    for (const Placed& child : placed.children)
        dump(child, depth + 1, out);
}

bool contains(const QRectF& rect, const QPointF& point) {
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

}  // namespace

void Placed::add(std::uint64_t slot, const View& view, const QRectF& childRect) {
    add(slot, view, childRect, environment);
}

void Placed::add(std::uint64_t slot, const View& view, const QRectF& childRect,
                 const Environment& env) {
    if (!view) return;
    Placed& child = children.emplace_back();
    child.node = view.node();
    child.rect = childRect;
    child.id = childId(id, slot);
    child.environment = env;
    placeNode(child);
}

Placed layOut(const View& view, const Environment& environment) {
    const QSizeF size = view ? view->measure({}, environment) : QSizeF(0, 0);
    return layOut(view, environment, size);
}

Placed layOut(const View& view, const Environment& environment, const QSizeF& size) {
    Placed root;
    root.node = view.node();
    root.rect = root.bounds = QRectF(QPointF(0, 0), size);
    root.environment = environment;
    if (root.node) placeNode(root);
    return root;
}

std::string dump(const Placed& root) {
    std::string out;
    if (root.node) dump(root, 0, out);
    return out;
}

void walk(const Placed& root, const std::function<void(const Placed&)>& visit) {
    if (!root.node) return;
    visit(root);
    for (const Placed& child : root.children)
        walk(child, visit);
}

const Placed* find(const Placed& root, const std::function<bool(const Placed&)>& test) {
    if (!root.node) return nullptr;
    if (test(root)) return &root;
    for (const Placed& child : root.children) {
        if (const Placed* found = find(child, test)) return found;
    }
    return nullptr;
}

std::vector<const Placed*> hit(const Placed& root, const QPointF& point,
                               const std::function<bool(const Placed&)>& test) {
    if (!root.node || !contains(root.bounds, point)) return {};
    const std::optional<QPointF> inside = root.node->inChildren(root, point);
    if (!inside) return {};
    for (auto child = root.children.rbegin(); child != root.children.rend(); ++child) {
        std::vector<const Placed*> path = hit(*child, *inside, test);
        if (path.empty()) continue;
        path.insert(path.begin(), &root);
        return path;
    }
    if (contains(root.rect, point) && test(root)) return {&root};
    return {};
}

}  // namespace kit
