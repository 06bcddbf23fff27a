#include "kit/Scroll.h"

#include <QLinearGradient>
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
        const QRectF& content = self.children.front().rect;
        const QRectF rect = self.rect;
        const double above = std::clamp(rect.top() - content.top(), 0.0, scrollFade);
        const double below = std::clamp(content.bottom() - rect.bottom(), 0.0, scrollFade);
        painting.clipped(rect.adjusted(0, above, 0, -below),
                         [&](Painting& inside) { inside.paintChildren(self); });
        fade(self, painting, {rect.left(), rect.top(), rect.width(), above}, 0);
        fade(self, painting, {rect.left(), rect.bottom() - below, rect.width(), below}, 1);
    }

    QRectF bounds(const Placed& self) const override { return self.rect; }
    bool cutsOff() const override { return true; }
    bool paintsItself() const override { return true; }
    // Whether an edge fades hangs on how much lies beyond it.
    bool spreads() const override { return true; }
    const Interaction* interaction() const override { return &interaction_; }
    std::string description() const override { return "scroll"; }

 private:
    // `end` is where nothing is left of it: 0 its top, 1 its bottom.
    static void fade(const Placed& self, Painting& painting, const QRectF& edge, double end) {
        if (edge.height() <= 0) return;
        QLinearGradient gradient(edge.topLeft(), edge.bottomLeft());
        gradient.setColorAt(end, Qt::transparent);
        gradient.setColorAt(1 - end, Qt::black);
        const QRectF part = painting.aligned(edge);
        painting.layer(
            part,
            [&](Painting& inside) {
                inside.clipped(part, [&](Painting& clipped) { clipped.paintChildren(self); });
            },
            [&](QPainter& painter, QImage&) {
                painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
                painter.fillRect(part, gradient);
            });
    }

    double position_;
    Interaction interaction_;
};

}  // namespace

View scroll(View content, double position, std::function<void(double)> scrolled) {
    if (!content) return {};
    return View(std::make_shared<ScrollNode>(std::move(content), position, std::move(scrolled)));
}

}  // namespace kit
