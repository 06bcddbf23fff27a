#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kit/Interaction.h"
#include "kit/Layout.h"
#include "kit/View.h"

namespace kit {

struct Description;
struct Placed;
class Painting;
class Shape;

/// What stands behind a View: immutable, shared, and drawn only through its place in a tree.
class Node {
 public:
    Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;

    /// The size this view takes for what it is offered.
    virtual QSizeF measure(const Proposal& proposal, const Environment& environment) const = 0;

    /// Distance from the top to the first line's baseline at a given size; the bottom where there
    /// is no text.
    virtual double firstBaseline(const QSizeF& size, const Environment&) const {
        return size.height();
    }

    /// Adds the children to `self`, whose rectangle and environment are set.
    virtual void place(Placed& self) const;

    /// Paints itself and its children; without more, only its children.
    virtual void paint(const Placed& self, Painting& painting) const;

    /// All that it and its children paint, in the root's points.
    virtual QRectF bounds(const Placed& self) const;

    /// Where a point is for the children, who may be drawn scaled; nothing where they are cut off.
    virtual std::optional<QPointF> inChildren(const Placed&, const QPointF& point) const {
        return point;
    }

    /// Whether its children are cut off at its rectangle, or inside of it.
    virtual bool cutsOff() const { return false; }

    /// Whether it paints by itself, its children apart, what `other` paints in the same place with
    /// the same environment.
    virtual bool paintsLike(const Node& other) const;

    /// Whether it draws its children into something of its own, so that where it stands matters
    /// to them; otherwise it only lays them out.
    virtual bool paintsItself() const { return false; }
    /// Whether it shows its children somewhere else or smeared: larger, blurred, with a shadow.
    virtual bool spreads() const { return false; }

    /// The numbers of its look that can glide; as many for every node of a kind.
    virtual std::vector<double> numbers() const { return {}; }
    /// The same node with other such numbers; null where there are none.
    virtual std::shared_ptr<const Node> withNumbers(const std::vector<double>&) const {
        return nullptr;
    }

    /// Stacks give room to the higher priority first; spacers come last.
    virtual double priority() const { return 0; }

    virtual const Interaction* interaction() const { return nullptr; }
    virtual const TextFieldSpec* textField() const { return nullptr; }
    virtual const DateFieldSpec* dateField() const { return nullptr; }
    virtual const Description* accessible() const { return nullptr; }
    /// What it draws, if that is nothing but a shape.
    virtual const Shape* shape() const { return nullptr; }

    /// One word and its arguments, for the text dump: `text "London"`.
    virtual std::string description() const = 0;
};

/// A node around one child: by itself it lays out and paints as the child does.
class Wrapper : public Node {
 public:
    explicit Wrapper(View child) : child_(std::move(child)) {}

    QSizeF measure(const Proposal& proposal, const Environment& environment) const override;
    double firstBaseline(const QSizeF& size, const Environment& environment) const override;
    void place(Placed& self) const override;
    double priority() const override;

 protected:
    const View& child() const { return child_; }

 private:
    View child_;
};

}  // namespace kit
