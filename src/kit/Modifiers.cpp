#include <algorithm>
#include <typeinfo>

#include "kit/Painting.h"

namespace kit {

QPointF aligned(const QRectF& space, const QSizeF& size, Alignment alignment) {
    QPointF at = space.topLeft();
    const QSizeF spare = space.size() - size;
    if (alignment.horizontal == Horizontal::centre) at.rx() += spare.width() / 2;
    if (alignment.horizontal == Horizontal::trailing) at.rx() += spare.width();
    if (alignment.vertical == Vertical::centre) at.ry() += spare.height() / 2;
    if (alignment.vertical == Vertical::bottom) at.ry() += spare.height();
    return at;
}

void Node::place(Placed&) const {}

QRectF Node::bounds(const Placed& self) const {
    QRectF all = self.rect;
    for (const Placed& child : self.children)
        all |= child.bounds;
    return all;
}

bool Node::paintsLike(const Node& other) const {
    return typeid(*this) == typeid(other);
}

void Node::paint(const Placed& self, Painting& painting) const {
    painting.paintChildren(self);
}

QSizeF Wrapper::measure(const Proposal& proposal, const Environment& environment) const {
    return child_->measure(proposal, environment);
}

double Wrapper::firstBaseline(const QSizeF& size, const Environment& environment) const {
    return child_->firstBaseline(size, environment);
}

void Wrapper::place(Placed& self) const {
    self.add(0, child_, self.rect);
}

double Wrapper::priority() const {
    return child_->priority();
}

namespace {

template <typename N, typename... Args>
View wrap(const View& child, Args&&... args) {
    return child ? View(std::make_shared<N>(child, std::forward<Args>(args)...)) : View();
}

class EnvironmentNode final : public Wrapper {
 public:
    EnvironmentNode(View child, std::optional<Font> font, std::optional<Colour> colour)
        : Wrapper(std::move(child)), font_(std::move(font)), colour_(colour) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        return Wrapper::measure(proposal, changed(env));
    }
    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return Wrapper::firstBaseline(size, changed(env));
    }
    void place(Placed& self) const override {
        self.add(0, child(), self.rect, changed(self.environment));
    }
    std::string description() const override { return font_ ? "font" : "colour"; }

 private:
    Environment changed(const Environment& env) const {
        return {font_.value_or(env.font), colour_.value_or(env.colour)};
    }
    std::optional<Font> font_;
    std::optional<Colour> colour_;
};

std::optional<double> less(std::optional<double> length, double by) {
    return length ? std::optional(std::max(0.0, *length - by)) : std::nullopt;
}

class PaddingNode final : public Wrapper {
 public:
    PaddingNode(View child, Insets insets) : Wrapper(std::move(child)), insets_(insets) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        const QSizeF inner =
            Wrapper::measure({less(proposal.width, sides()), less(proposal.height, ends())}, env);
        return {inner.width() + sides(), inner.height() + ends()};
    }
    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return insets_.above() +
               Wrapper::firstBaseline({size.width() - sides(), size.height() - ends()}, env);
    }
    void place(Placed& self) const override {
        self.add(0, child(),
                 self.rect.adjusted(insets_.left(), insets_.above(), -insets_.right(),
                                    -insets_.below()));
    }
    std::string description() const override { return "padding"; }

 private:
    double sides() const { return insets_.left() + insets_.right(); }
    double ends() const { return insets_.above() + insets_.below(); }
    Insets insets_;
};

class FrameNode final : public Wrapper {
 public:
    FrameNode(View child, Frame frame) : Wrapper(std::move(child)), frame_(frame) {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        if (frame_.width && frame_.height) return {*frame_.width, *frame_.height};
        const QSizeF inner = Wrapper::measure(inside(proposal), env);
        double width = frame_.width.value_or(inner.width());
        if (!frame_.width && frame_.maxWidth && proposal.width) {
            width = std::max(width, std::min(*frame_.maxWidth, *proposal.width));
        }
        return {std::max(width, frame_.minWidth.value_or(0)),
                std::max(frame_.height.value_or(inner.height()), frame_.minHeight.value_or(0))};
    }
    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        const QSizeF inner = Wrapper::measure(inside({size.width(), size.height()}), env);
        return aligned({QPointF(0, 0), size}, inner, frame_.alignment).y() +
               Wrapper::firstBaseline(inner, env);
    }
    void place(Placed& self) const override {
        const QSizeF inner =
            Wrapper::measure(inside({self.rect.width(), self.rect.height()}), self.environment);
        self.add(0, child(), {aligned(self.rect, inner, frame_.alignment), inner});
    }
    std::string description() const override { return "frame"; }

 private:
    Proposal inside(const Proposal& proposal) const {
        std::optional<double> width = frame_.width ? frame_.width : proposal.width;
        if (width && frame_.maxWidth) width = std::min(*width, *frame_.maxWidth);
        return {width, frame_.height ? frame_.height : proposal.height};
    }
    Frame frame_;
};

class OffsetNode final : public Wrapper {
 public:
    OffsetNode(View child, QPointF by) : Wrapper(std::move(child)), by_(by) {}
    void place(Placed& self) const override { self.add(0, child(), self.rect.translated(by_)); }
    std::string description() const override { return "offset"; }

 private:
    QPointF by_;
};

class FixedSizeNode final : public Wrapper {
 public:
    using Wrapper::Wrapper;
    QSizeF measure(const Proposal&, const Environment& env) const override {
        return Wrapper::measure({}, env);
    }
    std::string description() const override { return "fixed"; }
};

class PriorityNode final : public Wrapper {
 public:
    PriorityNode(View child, double priority) : Wrapper(std::move(child)), priority_(priority) {}
    double priority() const override { return priority_; }
    std::string description() const override { return "priority"; }

 private:
    double priority_;
};

// A companion drawn behind or in front of a view, in the view's own room. An absent companion
// still leaves the wrapper, so that the view keeps its identity when the companion comes.
class CompanionNode final : public Wrapper {
 public:
    enum class Layer { behind, inFront };
    CompanionNode(View child, View companion, Layer layer, Alignment alignment)
        : Wrapper(std::move(child)),
          companion_(std::move(companion)),
          layer_(layer),
          alignment_(alignment) {}

    void place(Placed& self) const override {
        if (layer_ == Layer::inFront) self.add(0, child(), self.rect);
        if (companion_) {
            const QSizeF size =
                companion_->measure({self.rect.width(), self.rect.height()}, self.environment);
            self.add(1, companion_, {aligned(self.rect, size, alignment_), size});
        }
        if (layer_ == Layer::behind) self.add(0, child(), self.rect);
    }
    std::string description() const override {
        return layer_ == Layer::behind ? "background" : "overlay";
    }

 private:
    View companion_;
    Layer layer_;
    Alignment alignment_;
};

}  // namespace

View View::font(Font font) const {
    return wrap<EnvironmentNode>(*this, std::optional(std::move(font)), std::nullopt);
}
View View::colour(Colour colour) const {
    return wrap<EnvironmentNode>(*this, std::nullopt, std::optional(colour));
}
View View::padding(Insets insets) const {
    return wrap<PaddingNode>(*this, insets);
}
View View::frame(Frame frame) const {
    return wrap<FrameNode>(*this, frame);
}
View View::offset(double x, double y) const {
    return wrap<OffsetNode>(*this, QPointF(x, y));
}
View View::fixedSize() const {
    return wrap<FixedSizeNode>(*this);
}
View View::priority(double priority) const {
    return wrap<PriorityNode>(*this, priority);
}

View View::background(View behind) const {
    return wrap<CompanionNode>(*this, std::move(behind), CompanionNode::Layer::behind, centred);
}

View View::overlay(View front, Alignment alignment) const {
    return wrap<CompanionNode>(*this, std::move(front), CompanionNode::Layer::inFront, alignment);
}

}  // namespace kit
