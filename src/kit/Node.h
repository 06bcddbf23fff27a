#pragma once

#include <memory>
#include <string>

#include "kit/Interaction.h"
#include "kit/Layout.h"
#include "kit/View.h"

namespace kit {

struct Placed;
class Painting;

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

    /// How far this node paints beyond its rectangle, on every side, in points.
    virtual double overflow() const { return 0; }

    /// Stacks give room to the higher priority first; spacers come last.
    virtual double priority() const { return 0; }

    virtual const Interaction* interaction() const { return nullptr; }
    virtual const TextFieldSpec* textField() const { return nullptr; }

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
