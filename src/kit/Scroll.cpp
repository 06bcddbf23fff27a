#include "kit/Scroll.h"

#include <algorithm>

#include "kit/Painting.h"

namespace kit {
namespace {

class ScrollNode final : public Wrapper {
 public:
    ScrollNode(View content, double position, std::function<void(double)> scrolled)
        : Wrapper(std::move(content)), position_(position) {
        interaction_.scrollTo = std::move(scrolled);
        interaction_.scrolled = position;
    }

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const QSizeF whole = Wrapper::measure({proposal.width, std::nullopt}, env);
        return {whole.width(), std::min(whole.height(), proposal.height.value_or(whole.height()))};
    }

    void place(Placed& self) const override {
        const QSizeF whole = child()->measure({self.rect.width(), std::nullopt}, self.environment);
        const double most = std::max(0.0, whole.height() - self.rect.height());
        const double down = std::clamp(position_, 0.0, most);
        self.add(0, child(),
                 {self.rect.left(), self.rect.top() - down, self.rect.width(), whole.height()});
    }

    void paint(const Placed& self, Painting& painting) const override {
        painting.clipped(self.rect, [&](Painting& inside) { inside.paintChildren(self); });
    }

    QRectF bounds(const Placed& self) const override { return self.rect; }
    bool cutsOff() const override { return true; }
    bool paintsItself() const override { return true; }
    const Interaction* interaction() const override { return &interaction_; }
    std::string description() const override { return "scroll"; }

 private:
    double position_;
    Interaction interaction_;
};

}  // namespace

View scroll(View content, double position, std::function<void(double)> scrolled) {
    if (!content) return {};
    return View(std::make_shared<ScrollNode>(std::move(content), position, std::move(scrolled)));
}

}  // namespace kit
