#pragma once

#include <QDate>
#include <QPointF>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kit {

/// A line of a menu; without a title it divides what is above from what is below.
struct MenuItem {
    std::string title;
    std::function<void()> choose;
};

/// Which keys press a button.
enum class PressKeys {
    none,
    space,          ///< once the Tab key has come to it
    spaceAndReturn  ///< and Return from anywhere in its window
};

/// What the pointer looks like.
enum class Cursor {
    arrow,
    text,  ///< where text is typed
    grab   ///< what can be dragged
};

/// Where the pointer is over a view.
struct Hover {
    QPointF at;              ///< in the view's own coordinates, points
    bool onControl = false;  ///< a control of its own lies there
};

/// What a view answers to. Each modifier sets one of these.
struct Interaction {
    std::function<void()> press;  ///< a button, or a tap
    bool isControl = false;       ///< it shows that the pointer is over it, and holds it down
    PressKeys keys = PressKeys::none;
    /// Of a button that keys press: that it has got the focus, or lost it.
    std::function<void(bool has)> focused;
    std::optional<bool> checked;  ///< of what is switched on and off, or chosen, by its press
    bool oneOfSeveral = false;    ///< of which choosing one gives up the others
    bool enabled = true;          ///< otherwise a press does nothing
    std::string tooltip;
    /// Where the pointer is; nothing once it has left.
    std::function<void(std::optional<Hover>)> hover;
    std::vector<MenuItem> menu;  ///< of a secondary click
    /// Asks for another position of what can be scrolled, in points from its top.
    std::function<void(double position)> scrollTo;
    double scrolled = 0;    ///< the position that was asked for
    bool revealed = false;  ///< scrolled into sight when it appears
    std::optional<Cursor> cursor;
    bool holdsField = false;  ///< a press anywhere in it goes to the field that it holds
    bool inert = false;       ///< nothing in it can be reached or is read out
};

/// A line of text the user edits.
struct TextFieldSpec {
    std::string name;  ///< for those who cannot see what stands around; empty: the placeholder
    std::string text;
    std::string placeholder;
    std::function<void(std::string)> onEdit;
    std::function<void()> onSubmit;  ///< the Return key
    bool focusOnAppear = false;
    unsigned focusRequests = 0;  ///< each further one gives it the focus
};

/// A day the user sets.
struct DateFieldSpec {
    std::string name;  ///< for those who cannot see what stands around
    QDate day;
    std::function<void(QDate)> onChange;
};

}  // namespace kit
