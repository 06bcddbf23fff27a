#include "kit/TextField.h"

#include <algorithm>

#include "kit/Painting.h"
#include "kit/Text.h"

namespace kit {
namespace {

constexpr double leastWidth = 40;

class TextFieldNode final : public Node {
 public:
    explicit TextFieldNode(TextFieldSpec field) : field_(std::move(field)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const double ideal = line(env)->measure({}, env).width();
        return {std::max(leastWidth, proposal.width.value_or(ideal)), metrics(env.font).lineHeight};
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return line(env)->firstBaseline(size, env);
    }

    void place(Placed& self) const override { self.add(0, line(self.environment), self.rect); }

    void paint(const Placed& self, Painting& painting) const override {
        if (painting.attention().leftOut != self.id) painting.paintChildren(self);
    }

    const TextFieldSpec* textField() const override { return &field_; }

    std::string description() const override { return "field"; }

 private:
    View line(const Environment& env) const {
        return field_.text.empty()
                   ? text(field_.placeholder).colour(env.colour.opacity(placeholderOpacity))
                   : text(field_.text);
    }

    TextFieldSpec field_;
};

class DateFieldNode final : public Node {
 public:
    explicit DateFieldNode(DateFieldSpec field) : field_(std::move(field)) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        return line()->measure(proposal, env);
    }
    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return line()->firstBaseline(size, env);
    }
    void place(Placed& self) const override { self.add(0, line(), self.rect); }
    void paint(const Placed& self, Painting& painting) const override {
        if (painting.attention().leftOut != self.id) painting.paintChildren(self);
    }
    const DateFieldSpec* dateField() const override { return &field_; }
    std::string description() const override { return "date field"; }

 private:
    View line() const { return text(field_.day.toString(dateFormat()).toStdString()); }

    DateFieldSpec field_;
};

}  // namespace

QString dateFormat() {
    return QStringLiteral("dd/MM/yyyy");
}

View dateField(DateFieldSpec field) {
    return View(std::make_shared<DateFieldNode>(std::move(field)));
}

View textField(TextFieldSpec field) {
    return View(std::make_shared<TextFieldNode>(std::move(field)));
}

}  // namespace kit
