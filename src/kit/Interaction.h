#pragma once

#include <QPointF>
#include <functional>
#include <optional>
#include <string>

namespace kit {

/// What a view answers to. Each modifier sets one of these.
struct Interaction {
    std::function<void()> press;  ///< a button
    std::string tooltip;
    /// Where the pointer is, in the view's own coordinates, in points; nothing once it has left.
    std::function<void(std::optional<QPointF>)> hover;
};

/// A line of text the user edits.
struct TextFieldSpec {
    std::string text;
    std::string placeholder;
    std::function<void(std::string)> onEdit;
    std::function<void()> onSubmit;  ///< the Return key
    bool focusOnAppear = false;
};

}  // namespace kit
