#include "kit/Disclosure.h"

#include "kit/Painting.h"

namespace kit {
namespace {

class DisclosureNode final : public Wrapper {
 public:
    DisclosureNode(View content, bool isOpen) : Wrapper(std::move(content)) {
        interaction_.inert = !isOpen;
    }

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const QSizeF whole = Wrapper::measure({proposal.width, std::nullopt}, env);
        return {whole.width(), interaction_.inert ? 0 : whole.height()};
    }
    void place(Placed& self) const override {
        const QSizeF whole = Wrapper::measure({self.rect.width(), std::nullopt}, self.environment);
        self.add(0, child(), {self.rect.topLeft(), QSizeF(self.rect.width(), whole.height())});
    }
    void paint(const Placed& self, Painting& painting) const override {
        painting.clipped(self.rect, [&](Painting& inside) { inside.paintChildren(self); });
    }
    QRectF bounds(const Placed& self) const override { return self.rect; }
    bool cutsOff() const override { return true; }
    bool paintsItself() const override { return true; }
    const Interaction* interaction() const override { return &interaction_; }
    std::string description() const override { return interaction_.inert ? "shut" : "open"; }

 private:
    Interaction interaction_;
};

}  // namespace

View disclosure(View content, bool isOpen) {
    if (!content) return {};
    return View(std::make_shared<DisclosureNode>(std::move(content), isOpen));
}

}  // namespace kit
