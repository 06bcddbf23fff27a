#include "kit/Flow.h"

#include <algorithm>

#include "kit/Group.h"
#include "kit/Placed.h"

namespace kit {
namespace {

// Rounding on the way down the tree must not break a line that fitted.
constexpr double tolerance = 0.01;

class FlowNode final : public Node {
 public:
    FlowNode(double spacing, const Views& children)
        : spacing_(spacing), children_(flatten(children)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        QSizeF size(0, 0);
        for (const QRectF& rect : arrange(proposal.width.value_or(infinite), env))
            size = size.expandedTo({rect.right(), rect.bottom()});
        return size;
    }

    void place(Placed& self) const override {
        const auto rects = arrange(self.rect.width(), self.environment);
        for (std::size_t i = 0; i < children_.size(); ++i)
            self.add(children_[i].slot, children_[i].view,
                     rects[i].translated(self.rect.topLeft()));
    }

    std::string description() const override { return "flow"; }

 private:
    // Where each child goes, from the flow's corner.
    std::vector<QRectF> arrange(double room, const Environment& env) const {
        std::vector<QRectF> rects;
        QPointF at;
        double lineHeight = 0;
        for (const Slot& child : children_) {
            QSizeF size = child.view->measure({}, env);
            if (size.width() > room) size = child.view->measure({room, std::nullopt}, env);
            if (at.x() > 0 && at.x() + size.width() > room + tolerance) {
                at = {0, at.y() + lineHeight + spacing_};
                lineHeight = 0;
            }
            rects.emplace_back(at, size);
            at.rx() += size.width() + spacing_;
            lineHeight = std::max(lineHeight, size.height());
        }
        return rects;
    }

    double spacing_;
    std::vector<Slot> children_;
};

}  // namespace

View flow(double spacing, const Views& children) {
    return View(std::make_shared<FlowNode>(spacing, children));
}

}  // namespace kit
