#include "kit/AccessibleElement.h"

#include <algorithm>
#include <cmath>

#include "kit/AccessibleView.h"

namespace kit {
namespace {

QAccessible::Role platformRole(const Element& element) {
    switch (element.role) {
        case Role::text:
            return QAccessible::StaticText;
        case Role::button:
            if (!element.checked) return QAccessible::PushButton;
            return element.oneOfSeveral ? QAccessible::RadioButton : QAccessible::CheckBox;
        case Role::cell:
            return QAccessible::Cell;
        case Role::row:
            return QAccessible::Row;
        case Role::group:
            return QAccessible::Grouping;
        case Role::range:
            return QAccessible::Slider;
        case Role::field:
            return QAccessible::EditableText;
        case Role::notice:
            return QAccessible::Notification;
    }
    return QAccessible::NoRole;
}

}  // namespace

QString accessibleName(const Element& element) {
    const bool both = !element.name.empty() && !element.value.empty();
    return QString::fromStdString(element.name + (both ? ", " : "") + element.value);
}

int indexOf(const QAccessibleInterface& parent, const QAccessibleInterface* child) {
    for (int i = 0; i < parent.childCount(); ++i) {
        if (parent.child(i) == child) return i;
    }
    return -1;
}

QAccessibleInterface* childUnder(const QAccessibleInterface& parent, int x, int y) {
    for (int i = parent.childCount() - 1; i >= 0; --i) {
        QAccessibleInterface* child = parent.child(i);
        if (child && child->rect().contains(x, y)) return child;
    }
    return nullptr;
}

FirstClickHostingView* AccessibleElement::view() const {
    return dynamic_cast<FirstClickHostingView*>(widget_.data());
}

const Element* AccessibleElement::element() const {
    const AccessibleView* tree = AccessibleView::of(view());
    return tree ? tree->find(id_) : nullptr;
}

QWindow* AccessibleElement::window() const {
    return widget_ ? widget_->window()->windowHandle() : nullptr;
}

// ---- its place among the others ----

QAccessibleInterface* AccessibleElement::parent() const {
    const AccessibleView* tree = AccessibleView::of(view());
    return tree ? tree->parentOf(id_) : nullptr;
}

int AccessibleElement::childCount() const {
    const Element* self = element();
    return self ? static_cast<int>(self->children.size()) : 0;
}

QAccessibleInterface* AccessibleElement::child(int index) const {
    const Element* self = element();
    const AccessibleView* tree = AccessibleView::of(view());
    return self && tree ? tree->at(self->children, index) : nullptr;
}

int AccessibleElement::indexOfChild(const QAccessibleInterface* child) const {
    return indexOf(*this, child);
}

QAccessibleInterface* AccessibleElement::childAt(int x, int y) const {
    return childUnder(*this, x, y);
}

// ---- what it is ----

QString AccessibleElement::text(QAccessible::Text which) const {
    const Element* self = element();
    if (!self) return {};
    switch (which) {
        case QAccessible::Name:
            return accessibleName(*self);
        case QAccessible::Value:
            return QString::fromStdString(self->value);
        case QAccessible::Description:
        case QAccessible::Help:
            return QString::fromStdString(self->help);
        default:
            return {};
    }
}

QRect AccessibleElement::rect() const {
    const Element* self = element();
    const FirstClickHostingView* host = view();
    if (!self || !host) return {};
    const QPoint corner = host->mapToGlobal(QPoint(host->margins().left(), host->margins().top()));
    return self->rect.toAlignedRect().translated(corner);
}

QAccessible::Role AccessibleElement::role() const {
    const Element* self = element();
    return self ? platformRole(*self) : QAccessible::NoRole;
}

QAccessible::State AccessibleElement::state() const {
    QAccessible::State state;
    const Element* self = element();
    state.invalid = !self;
    state.invisible = !widget_ || !widget_->isVisible();
    if (!self) return state;
    state.readOnly = self->role != Role::button && !(self->range && self->range->set);
    state.disabled = !self->enabled;
    state.checkable = self->checked.has_value();
    state.checked = self->checked.value_or(false);
    state.focusable = keys_ != nullptr;
    state.focused = keys_ && keys_->hasFocus();
    state.hasPopup = !self->menu.empty();
    return state;
}

void* AccessibleElement::interface_cast(QAccessible::InterfaceType type) {
    const Element* self = element();
    if (type == QAccessible::ActionInterface && !actionNames().isEmpty()) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    if (type == QAccessible::ValueInterface && self && self->range) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return nullptr;
}

// ---- what can be done with it ----

QStringList AccessibleElement::actionNames() const {
    QStringList names;
    const Element* self = element();
    if (!self) return names;
    if (self->press) names << (self->checked ? toggleAction() : pressAction());
    if (self->range && self->range->set) names << increaseAction() << decreaseAction();
    if (!self->menu.empty()) names << showMenuAction();
    if (keys_) names << setFocusAction();
    return names;
}

// What is called is held: it may build another tree.
void AccessibleElement::doAction(const QString& action) {
    const Element* self = element();
    if (!self || !actionNames().contains(action)) return;
    if (action == setFocusAction()) {
        keys_->setFocus();
    } else if (action == showMenuAction()) {
        const std::vector<MenuItem> menu = self->menu;
        view()->popUp(menu, rect().center());
    } else if (action == increaseAction()) {
        setCurrentValue(self->range->now + self->range->step);
    } else if (action == decreaseAction()) {
        setCurrentValue(self->range->now - self->range->step);
    } else {
        const auto press = self->press;
        press();
    }
}

QVariant AccessibleElement::currentValue() const {
    const Element* self = element();
    return self && self->range ? self->range->now : QVariant();
}

void AccessibleElement::setCurrentValue(const QVariant& value) {
    const Element* self = element();
    bool isNumber = false;
    const double wanted = value.toDouble(&isNumber);
    if (!self || !self->range || !self->range->set || !isNumber || std::isnan(wanted)) return;
    const auto set = self->range->set;
    set(std::clamp(wanted, self->range->least, self->range->most));
}

QVariant AccessibleElement::maximumValue() const {
    const Element* self = element();
    return self && self->range ? self->range->most : QVariant();
}

QVariant AccessibleElement::minimumValue() const {
    const Element* self = element();
    return self && self->range ? self->range->least : QVariant();
}

QVariant AccessibleElement::minimumStepSize() const {
    const Element* self = element();
    return self && self->range ? self->range->step : QVariant();
}

}  // namespace kit
