#include "kit/Stacks.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "kit/Group.h"
#include "kit/Placed.h"

namespace kit {
namespace {

constexpr double spacerPriority = -1;

class SpacerNode final : public Node {
 public:
    explicit SpacerNode(double minimum) : minimum_(minimum) {}
    QSizeF measure(const Proposal& proposal, const Environment&) const override {
        // Flexible along the stack only: across it a stack offers its own length and must not be
        // stretched by a spacer, so the two sides are told apart by `StackNode`.
        return {std::max(minimum_, proposal.width.value_or(minimum_)),
                std::max(minimum_, proposal.height.value_or(minimum_))};
    }
    double priority() const override { return spacerPriority; }
    std::string description() const override { return "spacer"; }

 private:
    double minimum_;
};

// A stack seen along its own direction: `along` is the width of a row, the height of a column.
struct Axis {
    bool horizontal;

    double along(const QSizeF& size) const { return horizontal ? size.width() : size.height(); }
    double across(const QSizeF& size) const { return horizontal ? size.height() : size.width(); }
    std::optional<double> along(const Proposal& p) const { return horizontal ? p.width : p.height; }
    std::optional<double> across(const Proposal& p) const {
        return horizontal ? p.height : p.width;
    }
    Proposal proposal(std::optional<double> along, std::optional<double> across) const {
        return horizontal ? Proposal{along, across} : Proposal{across, along};
    }
    QSizeF size(double along, double across) const {
        return horizontal ? QSizeF(along, across) : QSizeF(across, along);
    }
};

class StackNode final : public Node {
 public:
    StackNode(bool horizontal, Alignment alignment, double spacing, const Views& children)
        : axis_{horizontal},
          alignment_(alignment),
          spacing_(spacing),
          children_(flatten(children)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const std::vector<QSizeF> sizes = childSizes(proposal, env);
        double along = totalSpacing();
        for (const QSizeF& size : sizes)
            along += axis_.along(size);
        if (onBaseline()) return {along, baselines(sizes, env).height};
        double across = 0;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            if (!isSpacer(i)) across = std::max(across, axis_.across(sizes[i]));
        }
        return axis_.size(along, across);
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        const std::vector<QSizeF> sizes = childSizes({size.width(), size.height()}, env);
        if (onBaseline()) return baselines(sizes, env).baseline;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            if (isSpacer(i)) continue;
            const double top =
                axis_.horizontal ? aligned({QPointF(0, 0), size}, sizes[i], alignment_).y() : 0;
            return top + children_[i].view->firstBaseline(sizes[i], env);
        }
        return size.height();
    }

    void place(Placed& self) const override {
        const Environment& env = self.environment;
        const std::vector<QSizeF> sizes = childSizes({self.rect.width(), self.rect.height()}, env);
        const double baseline = onBaseline() ? baselines(sizes, env).baseline : 0;
        double along = axis_.horizontal ? self.rect.left() : self.rect.top();
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            QPointF at = aligned(self.rect, sizes[i], alignment_);
            if (onBaseline()) {
                at.setY(self.rect.top() + baseline -
                        children_[i].view->firstBaseline(sizes[i], env));
            }
            (axis_.horizontal ? at.rx() : at.ry()) = along;
            self.add(children_[i].slot, children_[i].view, QRectF(at, sizes[i]));
            along += axis_.along(sizes[i]) + spacing_;
        }
    }

    std::string description() const override { return axis_.horizontal ? "hstack" : "vstack"; }

 private:
    struct Baselines {
        double baseline = 0;  // from the stack's top
        double height = 0;
    };

    bool onBaseline() const {
        return axis_.horizontal && alignment_.vertical == Vertical::firstBaseline;
    }
    bool isSpacer(std::size_t i) const { return children_[i].view->priority() == spacerPriority; }
    double totalSpacing() const {
        return children_.empty() ? 0 : spacing_ * static_cast<double>(children_.size() - 1);
    }

    Baselines baselines(const std::vector<QSizeF>& sizes, const Environment& env) const {
        Baselines result;
        double below = 0;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            if (isSpacer(i)) continue;
            const double baseline = children_[i].view->firstBaseline(sizes[i], env);
            result.baseline = std::max(result.baseline, baseline);
            below = std::max(below, sizes[i].height() - baseline);
        }
        result.height = result.baseline + below;
        return result;
    }

    QSizeF measured(std::size_t i, std::optional<double> along, const Proposal& proposal,
                    const Environment& env) const {
        return children_[i].view->measure(axis_.proposal(along, axis_.across(proposal)), env);
    }

    std::vector<QSizeF> childSizes(const Proposal& proposal, const Environment& env) const {
        std::vector<QSizeF> sizes(children_.size());
        double ideal = totalSpacing();
        bool hasSpacer = false;
        for (std::size_t i = 0; i < children_.size(); ++i) {
            sizes[i] = measured(i, std::nullopt, proposal, env);
            ideal += axis_.along(sizes[i]);
            hasSpacer = hasSpacer || isSpacer(i);
        }
        const std::optional<double> room = axis_.along(proposal);
        constexpr double tolerance = 1e-6;
        const bool fits = !room || (ideal <= *room + tolerance && ideal >= *room - tolerance);
        if (!fits) share(*room - totalSpacing(), proposal, env, sizes);
        return sizes;
    }

    // Serves the children in order of priority, the least flexible of equals first; each is
    // offered an equal part of what is left once the lower priorities have their minimum.
    void share(double room, const Proposal& proposal, const Environment& env,
               std::vector<QSizeF>& sizes) const {
        struct Wish {
            std::size_t child;
            double priority, least, flexibility;
        };
        std::vector<Wish> wishes;
        for (std::size_t i = 0; i < children_.size(); ++i) {
            const double least = axis_.along(measured(i, 0, proposal, env));
            const double most = axis_.along(measured(i, infinite, proposal, env));
            wishes.push_back({i, children_[i].view->priority(), least, most - least});
        }
        std::stable_sort(wishes.begin(), wishes.end(), [](const Wish& a, const Wish& b) {
            return a.priority != b.priority ? a.priority > b.priority
                                            : a.flexibility < b.flexibility;
        });
        for (std::size_t i = 0; i < wishes.size(); ++i) {
            double reserved = 0;
            double sharers = 0;
            for (std::size_t j = i; j < wishes.size(); ++j) {
                if (wishes[j].priority == wishes[i].priority) {
                    ++sharers;
                } else {
                    reserved += wishes[j].least;
                }
            }
            const double offer = std::max(0.0, (room - reserved) / sharers);
            QSizeF& size = sizes[wishes[i].child];
            size = measured(wishes[i].child, offer, proposal, env);
            room -= axis_.along(size);
        }
    }

    Axis axis_;
    Alignment alignment_;
    double spacing_;
    std::vector<Slot> children_;
};

class LayersNode final : public Node {
 public:
    LayersNode(Alignment alignment, const Views& children)
        : alignment_(alignment), children_(flatten(children)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        QSizeF size(0, 0);
        for (const Slot& child : children_) {
            size = size.expandedTo(child.view->measure(proposal, env));
        }
        return size;
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        if (children_.empty()) return size.height();
        const View& first = children_.front().view;
        const QSizeF own = first->measure({size.width(), size.height()}, env);
        return aligned({QPointF(0, 0), size}, own, alignment_).y() + first->firstBaseline(own, env);
    }

    void place(Placed& self) const override {
        for (const Slot& child : children_) {
            const QSizeF size =
                child.view->measure({self.rect.width(), self.rect.height()}, self.environment);
            self.add(child.slot, child.view, {aligned(self.rect, size, alignment_), size});
        }
    }

    std::string description() const override { return "zstack"; }

 private:
    Alignment alignment_;
    std::vector<Slot> children_;
};

}  // namespace

View hstack(RowSpec options, const Views& children) {
    return View(std::make_shared<StackNode>(true, Alignment{Horizontal::leading, options.align},
                                            options.spacing, children));
}

View vstack(ColumnSpec options, const Views& children) {
    return View(std::make_shared<StackNode>(false, Alignment{options.align, Vertical::top},
                                            options.spacing, children));
}

View zstack(Alignment alignment, const Views& children) {
    return View(std::make_shared<LayersNode>(alignment, children));
}

View spacer(double minimum) {
    return View(std::make_shared<SpacerNode>(minimum));
}

}  // namespace kit
