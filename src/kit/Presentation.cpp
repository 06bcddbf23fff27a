#include "kit/Presentation.h"

#include <algorithm>
#include <typeinfo>

namespace kit {
namespace {

// Of what `state` holds.
constexpr std::size_t width = 2;
constexpr std::size_t height = 3;

std::vector<double> state(const Placed& placed) {
    std::vector<double> result{placed.rect.left(), placed.rect.top(), placed.rect.width(),
                               placed.rect.height()};
    const std::vector<double> numbers = placed.node->numbers();
    result.insert(result.end(), numbers.begin(), numbers.end());
    return result;
}

}  // namespace

void Presentation::show(Placed target, const std::optional<Curve>& curve, double now) {
    forgetFinished(now);
    if (target_->node && target.node) {
        compare(*target_, target, curve, now);
    } else {
        glides_.clear();
    }
    target_ = std::make_shared<Placed>(std::move(target));
}

void Presentation::compare(const Placed& before, const Placed& after,
                           const std::optional<Curve>& curve, double now) {
    const Node& node = *after.node;
    if (before.id != after.id || typeid(*before.node) != typeid(node)) return forget(after);
    if (before.node != after.node || before.rect != after.rect) {
        std::vector<double> behind = state(before);
        const std::vector<double> goal = state(after);
        // Other words in less room than they need would be cut on the way.
        if (node.accessible() && !node.paintsLike(*before.node)) {
            behind[width] = goal[width];
            behind[height] = goal[height];
        }
        if (behind.size() != goal.size()) {
            glides_.erase(after.id);
        } else if (behind != goal) {
            std::transform(behind.begin(), behind.end(), goal.begin(), behind.begin(),
                           std::minus<>());
            if (curve) {
                glides_[after.id].push_back({*curve, now, std::move(behind)});
            } else {
                jump(after.id, behind);
            }
        }
    }
    std::size_t old = 0;
    for (const Placed& child : after.children) {
        const auto same = [&](const Placed& b) { return b.id == child.id; };
        if (old < before.children.size() && same(before.children[old])) {
            compare(before.children[old++], child, curve, now);
            continue;
        }
        const auto found = std::find_if(before.children.begin(), before.children.end(), same);
        if (found == before.children.end()) {
            forget(child);
            continue;
        }
        compare(*found, child, curve, now);
        old = static_cast<std::size_t>(found - before.children.begin()) + 1;
    }
}

// The numbers that have changed are at once where they belong; the others go on.
void Presentation::jump(Id id, const std::vector<double>& changed) {
    const auto found = glides_.find(id);
    if (found == glides_.end()) return;
    for (Glide& glide : found->second) {
        for (std::size_t i = 0; i < changed.size(); ++i) {
            if (changed[i] != 0) glide.behind[i] = 0;
        }
    }
}

// What has just come starts where it belongs, whatever bore its name before.
void Presentation::forget(const Placed& gone) {
    if (glides_.empty()) return;
    walk(gone, [this](const Placed& placed) { glides_.erase(placed.id); });
}

void Presentation::forgetFinished(double now) {
    for (auto view = glides_.begin(); view != glides_.end();) {
        std::erase_if(view->second, [now](const Glide& glide) {
            return now - glide.start >= glide.curve.length();
        });
        view = view->second.empty() ? glides_.erase(view) : std::next(view);
    }
}

std::shared_ptr<const Placed> Presentation::at(double now) {
    forgetFinished(now);
    if (!moving() || !target_->node) return target_;
    return std::make_shared<Placed>(presented(*target_, now));
}

Placed Presentation::presented(const Placed& target, double now) const {
    Placed result;
    result.node = target.node;
    result.rect = target.rect;
    result.id = target.id;
    result.environment = target.environment;
    if (const auto found = glides_.find(target.id); found != glides_.end()) {
        std::vector<double> values = state(target);
        for (const Glide& glide : found->second) {
            const double left = 1 - glide.curve.progress(now - glide.start);
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] += glide.behind[i] * left;
        }
        // A spring may swing past nothing.
        result.rect = {values[0], values[1], std::max(values[2], 0.0), std::max(values[3], 0.0)};
        if (values.size() > 4) {
            result.node = target.node->withNumbers({values.begin() + 4, values.end()});
        }
    }
    result.children.reserve(target.children.size());
    for (const Placed& child : target.children)
        result.children.push_back(presented(child, now));
    result.bounds = result.node->bounds(result);
    return result;
}

}  // namespace kit
