#pragma once

#include <QPointF>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kit/Layout.h"

namespace kit {

class Node;
class Shape;
struct Description;
struct Hover;
struct MenuItem;
enum class Cursor;
enum class PressKeys;

/// A position in a horizontal gradient mask: 0 is the leading edge, 1 the trailing one.
struct MaskStop {
    double position = 0;
    double opacity = 1;

    bool operator==(const MaskStop&) const = default;
};

/// A piece of user interface as a value: cheap to copy, never changed, built anew whenever what it
/// shows changes. A view built without anything is absent: it takes no room and no spacing.
class View {
 public:
    View() = default;
    explicit View(std::shared_ptr<const Node> node) : node_(std::move(node)) {}

    explicit operator bool() const { return node_ != nullptr; }
    const Node* operator->() const { return node_.get(); }
    const std::shared_ptr<const Node>& node() const { return node_; }

    // What flows down to everything inside.
    View font(Font font) const;
    View colour(Colour colour) const;

    // Layout. All lengths in points.
    View padding(Insets insets) const;
    View frame(Frame frame) const;
    /// Moves what is drawn, not the room it takes.
    View offset(double x, double y) const;
    /// Exactly the size the content asks for, whatever is offered.
    View fixedSize() const;
    /// Rank among the children of a stack when room is short; 0 without.
    View priority(double priority) const;
    /// Drawn behind or in front, within the same room.
    View background(View behind) const;
    View overlay(View front, Alignment alignment = centred) const;

    // Drawing.
    View opacity(double opacity) const;
    View scale(double x, double y, Alignment anchor = centred) const;
    /// `radius` is twice the standard deviation, points; 0 draws the view as it is.
    View blur(double radius) const;
    View clip(const Shape& shape) const;
    /// Fades the view along its width. Stops ascend by position.
    View mask(std::vector<MaskStop> stops) const;
    /// A glow of the view's own outline; `radius` is twice the standard deviation of the blur.
    View shadow(Colour colour, double radius) const;

    // Interaction.
    /// `focused` is told when a button that keys press gets the focus, and when it loses it.
    View button(std::function<void()> press, PressKeys keys = {},
                std::function<void(bool has)> focused = {}) const;
    /// A button that cannot be pressed now; the Tab key comes to it all the same.
    View disabledButton() const;
    /// A button that switches something on or off; the Space key presses it.
    View toggle(bool checked, std::function<void()> press) const;
    /// A button that chooses one of several; the Space key presses it.
    View choice(bool chosen, std::function<void()> press) const;
    /// A press anywhere on the view, without being a control of its own.
    View onTap(std::function<void()> tap) const;
    /// What a secondary click offers.
    View contextMenu(std::vector<MenuItem> items) const;
    View tooltip(std::string text) const;
    /// Scrolls itself into sight when it appears, or comes to be `wanted` there.
    View revealed(bool wanted = true) const;
    /// What the pointer looks like over it. Fields have the text cursor by themselves.
    View cursor(Cursor cursor) const;
    /// The box around a field: a press anywhere in it goes to the field. Around a date, which has
    /// no insertion point, it shows where the focus is.
    View fieldBox() const;
    View onHover(std::function<void(std::optional<Hover>)> hover) const;

    /// What it is to those who cannot see it, and all that is inside of it with it.
    View described(const Description& description) const;

    /// Any modifier of one's own: `view.modified(inCapsule)`.
    View modified(const std::function<View(View)>& modifier) const { return modifier(*this); }

 private:
    std::shared_ptr<const Node> node_;
};

/// Children of a stack. An absent child keeps its slot, so that the others keep their identity.
using Views = std::vector<View>;

/// The view, or an absent one that keeps its slot.
inline View when(bool condition, const std::function<View()>& build) {
    return condition ? build() : View();
}

/// The same slot showing one of several forms; each form has an identity of its own.
View form(std::uint64_t which, View view);

/// One view per element, told apart by key wherever they move; equal keys by their occurrence.
/// As a child of a stack its elements are the stack's own children.
View group(std::vector<std::pair<std::uint64_t, View>> keyed);

template <typename Range, typename Key, typename Build>
View forEach(const Range& range, Key key, Build build) {
    std::vector<std::pair<std::uint64_t, View>> keyed;
    keyed.reserve(std::size(range));
    for (const auto& element : range) {
        keyed.emplace_back(static_cast<std::uint64_t>(key(element)), build(element));
    }
    return group(std::move(keyed));
}

}  // namespace kit
