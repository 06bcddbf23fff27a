#pragma once

#include <QRectF>
#include <optional>
#include <string>
#include <vector>

#include "kit/Placed.h"

namespace kit {

enum class Role { text, button, cell, row, group, value, field };

/// What a view is to those who cannot see it. Without a name it goes by what stands in it.
struct Description {
    Role role = Role::group;
    std::string name;
    std::string value;  ///< what may change while the name stays
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
    std::optional<bool> checked;  ///< of what is switched on and off
    bool enabled = true;
    std::vector<Element> children;
};

/// The things in a tree, in the order in which they are painted. A button is one thing, whatever it
/// is made of; it is named by its texts or, without any, by its tooltip.
std::vector<Element> elements(const Placed& root);

}  // namespace kit
