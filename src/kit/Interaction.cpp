#include "kit/Interaction.h"

#include "kit/Node.h"
#include "kit/Placed.h"

namespace kit {
namespace {

class InteractionNode final : public Wrapper {
 public:
    InteractionNode(View child, std::string name, Interaction interaction)
        : Wrapper(std::move(child)), name_(std::move(name)), interaction_(std::move(interaction)) {}

    const Interaction* interaction() const override { return &interaction_; }
    std::string description() const override {
        return interaction_.tooltip.empty() ? name_ : name_ + " \"" + interaction_.tooltip + "\"";
    }

 private:
    std::string name_;
    Interaction interaction_;
};

View interactive(const View& child, const char* name, Interaction interaction) {
    return child ? View(std::make_shared<InteractionNode>(child, name, std::move(interaction)))
                 : View();
}

}  // namespace

View View::button(std::function<void()> press) const {
    return interactive(*this, "button", {.press = std::move(press), .tooltip = {}, .hover = {}});
}

View View::tooltip(std::string text) const {
    return interactive(*this, "tooltip", {.press = {}, .tooltip = std::move(text), .hover = {}});
}

View View::onHover(std::function<void(std::optional<QPointF>)> hover) const {
    return interactive(*this, "hover", {.press = {}, .tooltip = {}, .hover = std::move(hover)});
}

}  // namespace kit
