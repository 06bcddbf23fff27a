#include "kit/Interaction.h"

#include "kit/ControlLook.h"
#include "kit/Description.h"
#include "kit/Node.h"
#include "kit/Painting.h"

namespace kit {
namespace {

class InteractionNode final : public Wrapper {
 public:
    InteractionNode(View child, std::string name, Interaction interaction)
        : Wrapper(std::move(child)), name_(std::move(name)), interaction_(std::move(interaction)) {}

    const Interaction* interaction() const override { return &interaction_; }

    void paint(const Placed& self, Painting& painting) const override {
        if (interaction_.isControl)
            paintControl(self, painting);
        else
            painting.paintChildren(self);
        if (interaction_.holdsField) paintFocusedDate(self, painting);
    }

    // What shows that the user is there reaches beyond what stands there.
    QRectF bounds(const Placed& self) const override {
        const QRectF inner = Wrapper::bounds(self);
        return interaction_.isControl || interaction_.holdsField ? inner | attentionRect(self.rect)
                                                                 : inner;
    }
    std::string description() const override {
        return interaction_.tooltip.empty() ? name_ : name_ + " \"" + interaction_.tooltip + "\"";
    }

 private:
    std::string name_;
    Interaction interaction_;
};

class DescribedNode final : public Wrapper {
 public:
    DescribedNode(View child, Description description)
        : Wrapper(std::move(child)), description_(std::move(description)) {}

    const Description* accessible() const override { return &description_; }
    std::string description() const override { return "described \"" + description_.name + "\""; }

 private:
    Description description_;
};

View interactive(const View& child, const char* name, Interaction interaction) {
    return child ? View(std::make_shared<InteractionNode>(child, name, std::move(interaction)))
                 : View();
}

}  // namespace

View View::button(std::function<void()> press, PressKeys keys,
                  std::function<void(bool has)> focused) const {
    Interaction interaction;
    interaction.press = std::move(press);
    interaction.isControl = true;
    interaction.keys = keys;
    interaction.focused = std::move(focused);
    return interactive(*this, "button", std::move(interaction));
}

View View::disabledButton() const {
    Interaction interaction;
    interaction.press = [] {};
    interaction.keys = PressKeys::space;
    interaction.enabled = false;
    return interactive(*this, "disabled button", std::move(interaction));
}

View View::toggle(bool checked, std::function<void()> press) const {
    Interaction interaction;
    interaction.press = std::move(press);
    interaction.isControl = true;
    interaction.keys = PressKeys::space;
    interaction.checked = checked;
    return interactive(*this, checked ? "toggle on" : "toggle off", std::move(interaction));
}

View View::choice(bool chosen, std::function<void()> press) const {
    Interaction interaction;
    interaction.press = std::move(press);
    interaction.isControl = true;
    interaction.keys = PressKeys::space;
    interaction.checked = chosen;
    interaction.oneOfSeveral = true;
    return interactive(*this, chosen ? "chosen" : "choice", std::move(interaction));
}

View View::tooltip(std::string text) const {
    Interaction interaction;
    interaction.tooltip = std::move(text);
    return interactive(*this, "tooltip", std::move(interaction));
}

View View::revealed(bool wanted) const {
    Interaction interaction;
    interaction.revealed = wanted;
    return interactive(*this, "revealed", std::move(interaction));
}

View View::cursor(Cursor cursor) const {
    Interaction interaction;
    interaction.cursor = cursor;
    return interactive(*this, "cursor", std::move(interaction));
}

View View::fieldBox() const {
    Interaction interaction;
    interaction.holdsField = true;
    interaction.cursor = Cursor::text;
    return interactive(*this, "field box", std::move(interaction));
}

View View::onHover(std::function<void(std::optional<Hover>)> hover) const {
    Interaction interaction;
    interaction.hover = std::move(hover);
    return interactive(*this, "hover", std::move(interaction));
}

View View::described(const Description& description) const {
    return *this ? View(std::make_shared<DescribedNode>(*this, description)) : View();
}

View View::onTap(std::function<void()> tap) const {
    Interaction interaction;
    interaction.press = std::move(tap);
    return interactive(*this, "tap", std::move(interaction));
}

View View::contextMenu(std::vector<MenuItem> items) const {
    Interaction interaction;
    interaction.menu = std::move(items);
    return interactive(*this, "menu", std::move(interaction));
}

}  // namespace kit
