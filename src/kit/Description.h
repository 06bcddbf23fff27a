#pragma once

#include <QRectF>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "kit/Placed.h"

namespace kit {

enum class Role {
    text,
    button,
    cell,
    row,
    group,
    range,  ///< a number that can be set
    field,
    notice  ///< a message that is read out when it comes
};

/// A number that can be set, from `least` to `most`.
struct Range {
    double now = 0;
    double least = 0;
    double most = 0;
    double step = 1;
    std::function<void(double)> set;
};

/// What a view is to those who cannot see it. What stands in it is told as well where it is a group
/// or a row, and nowhere else.
struct Description {
    Role role = Role::group;
    std::string name;
    std::string value;            ///< what may change while the name stays
    std::function<void()> press;  ///< what the pointer does there by other ways than a button
    std::optional<Range> range;
};

/// One thing a screen reader can come to.
struct Element {
    Id id = 0;
    Role role = Role::text;
    std::string name;
    std::string value;
    std::string help;             ///< what a tooltip adds to the name
    QRectF rect;                  ///< points from the tree's corner
    std::function<void()> press;  ///< null where there is nothing to press
    std::optional<bool> checked;  ///< of what is switched on and off, or chosen
    bool oneOfSeveral = false;    ///< of which choosing one gives up the others
    bool enabled = true;
    std::optional<Range> range;
    std::vector<MenuItem> menu;  ///< of a secondary click
    std::vector<Element> children;
};

/// The things in a tree, in the order in which they are painted. A button is one thing, whatever it
/// is made of; it is named by its texts or, without any, by its tooltip.
std::vector<Element> elements(const Placed& root);

}  // namespace kit
