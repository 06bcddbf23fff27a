#include "kit/Description.h"

#include "kit/Node.h"

namespace kit {
namespace {

const std::string& nameOf(const TextFieldSpec& field) {
    return field.name.empty() ? field.placeholder : field.name;
}

std::string textIn(const Placed& placed) {
    std::string all;
    walk(placed, [&all](const Placed& below) {
        const Description* said = below.node->accessible();
        if (!said || said->role != Role::text || said->name.empty()) return;
        all += (all.empty() ? "" : " ") + said->name;
    });
    return all;
}

const std::string* tooltipIn(const Placed& placed) {
    const Placed* found = find(placed, [](const Placed& below) {
        return below.node->interaction() && !below.node->interaction()->tooltip.empty();
    });
    return found ? &found->node->interaction()->tooltip : nullptr;
}

void collect(const Placed& placed, const std::string* tooltip, std::vector<Element>& into);

void collectChildren(const Placed& placed, const std::string* tooltip, std::vector<Element>& into) {
    for (const Placed& child : placed.children)
        collect(child, tooltip, into);
}

Element button(const Placed& placed, const std::string* tooltip) {
    if (!tooltip) tooltip = tooltipIn(placed);
    const Placed* named = find(placed, [](const Placed& below) {
        return below.node->accessible() && below.node->accessible()->role == Role::button;
    });
    const Description* said = named ? named->node->accessible() : nullptr;
    Element element{.id = placed.id, .role = Role::button, .rect = placed.rect};
    element.name = said && !said->name.empty() ? said->name : textIn(placed);
    if (tooltip && element.name.empty()) {
        element.name = *tooltip;
    } else if (tooltip) {
        element.help = *tooltip;
    }
    element.enabled = placed.node->interaction()->enabled;
    if (element.enabled) element.press = placed.node->interaction()->press;
    element.checked = placed.node->interaction()->checked;
    element.oneOfSeveral = placed.node->interaction()->oneOfSeveral;
    return element;
}

void collect(const Placed& placed, const std::string* tooltip, std::vector<Element>& into) {
    const Interaction* interaction = placed.node->interaction();
    if (interaction && interaction->inert) return;
    if (interaction && !interaction->tooltip.empty()) tooltip = &interaction->tooltip;
    if (interaction && interaction->press) {
        into.push_back(button(placed, tooltip));
        return;
    }
    if (interaction && !interaction->menu.empty()) {
        const std::size_t first = into.size();
        collectChildren(placed, tooltip, into);
        if (into.size() > first) into[first].menu = interaction->menu;
        return;
    }
    if (placed.node->textField()) {
        into.push_back({.id = placed.id,
                        .role = Role::field,
                        .name = nameOf(*placed.node->textField()),
                        .rect = placed.rect});
        return;
    }
    if (placed.node->dateField()) {
        into.push_back({.id = placed.id,
                        .role = Role::field,
                        .name = placed.node->dateField()->name,
                        .rect = placed.rect});
        return;
    }
    const Description* said = placed.node->accessible();
    if (!said) return collectChildren(placed, tooltip, into);

    Element element{.id = placed.id,
                    .role = said->role,
                    .name = said->name,
                    .value = said->value,
                    .rect = placed.rect,
                    .press = said->press,
                    .range = said->range};
    if (tooltip && *tooltip != element.name) element.help = *tooltip;
    const bool holdsOthers = said->role == Role::group || said->role == Role::row;
    if (holdsOthers) collectChildren(placed, nullptr, element.children);
    into.push_back(std::move(element));
}

}  // namespace

std::vector<Element> elements(const Placed& root) {
    std::vector<Element> result;
    if (root.node) collect(root, nullptr, result);
    return result;
}

}  // namespace kit
