#include "kit/TextField.h"

#include <algorithm>

#include "kit/Painting.h"
#include "kit/Text.h"

namespace kit {
namespace {

constexpr double placeholderOpacity = 0.45;
constexpr double leastWidth = 40;

class TextFieldNode final : public Node {
 public:
    explicit TextFieldNode(TextFieldSpec spec) : spec_(std::move(spec)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const double ideal = line(env)->measure({}, env).width();
        return {std::max(leastWidth, proposal.width.value_or(ideal)), metrics(env.font).lineHeight};
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return line(env)->firstBaseline(size, env);
    }

    void place(Placed& self) const override { self.add(0, line(self.environment), self.rect); }

    const TextFieldSpec* textField() const override { return &spec_; }

    std::string description() const override { return "field"; }

 private:
    View line(const Environment& env) const {
        return spec_.text.empty()
                   ? text(spec_.placeholder).colour(env.colour.opacity(placeholderOpacity))
                   : text(spec_.text);
    }

    TextFieldSpec spec_;
};

}  // namespace

View textField(TextFieldSpec spec) {
    return View(std::make_shared<TextFieldNode>(std::move(spec)));
}

}  // namespace kit
