#include "kit/Damage.h"

#include <algorithm>

namespace kit {
namespace {

class Comparison {
 public:
    std::vector<QRectF> damaged;

    void compare(const Placed& before, const Placed& after) {
        if (looksElsewhere(before, after)) {
            mark(before.bounds);
            mark(after.bounds);
            return;
        }
        const std::size_t outer = damaged.size();
        compareChildren(before.children, after.children);
        // What is scaled, blurred or shadowed shows its children's changes somewhere else.
        if (damaged.size() > outer && spreads(after)) {
            damaged.resize(outer);
            mark(before.bounds);
            mark(after.bounds);
        }
    }

 private:
    static bool looksElsewhere(const Placed& before, const Placed& after) {
        if (before.node != after.node && !after.node->paintsLike(*before.node)) return true;
        if (!after.children.empty() || !before.children.empty()) {
            // A container only matters where it draws something itself, as far as it reaches.
            return before.rect != after.rect && after.node->paintsItself();
        }
        return before.rect != after.rect || !(before.environment == after.environment);
    }

    static bool spreads(const Placed& placed) { return placed.node->spreads(); }

    void compareChildren(const std::vector<Placed>& before, const std::vector<Placed>& after) {
        // Mostly nothing has come or gone, and both go on side by side.
        std::size_t old = 0;
        for (const Placed& child : after) {
            const auto found = std::find_if(before.begin() + static_cast<long>(old), before.end(),
                                            [&](const Placed& b) { return b.id == child.id; });
            if (found == before.end()) {
                // New, or now painted later than what used to follow it.
                mark(child.bounds);
                continue;
            }
            for (; before.begin() + static_cast<long>(old) != found; ++old)
                mark(before[old].bounds);
            compare(*found, child);
            ++old;
        }
        for (; old < before.size(); ++old)
            mark(before[old].bounds);
    }

    void mark(const QRectF& rect) {
        if (!rect.isEmpty()) damaged.push_back(rect);
    }
};

}  // namespace

std::vector<QRectF> damage(const Placed& before, const Placed& after) {
    if (!before.node && !after.node) return {};
    if (!before.node) return {after.bounds};
    if (!after.node) return {before.bounds};
    Comparison comparison;
    comparison.compare(before, after);
    return std::move(comparison.damaged);
}

}  // namespace kit
