#include "kit/AccessibleView.h"

#include <utility>

#include "kit/AccessibleElement.h"

namespace kit {
namespace {

void tell(QAccessibleInterface* about, QAccessible::Event what) {
    QAccessibleEvent event(about, what);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

AccessibleView::AccessibleView(FirstClickHostingView& view)
    : QAccessibleWidget(&view, QAccessible::Client), view_(view) {
    view_.onRebuilt = [this] { rebuilt(); };
    view_.onGone = [this] { QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(this)); };
}

AccessibleView::~AccessibleView() {
    view_.onRebuilt = nullptr;
    view_.onGone = nullptr;
    for (const QAccessible::Id interface : std::as_const(interfaces_))
        QAccessible::deleteAccessibleInterface(interface);
}

AccessibleView* AccessibleView::of(FirstClickHostingView* view) {
    return view ? dynamic_cast<AccessibleView*>(QAccessible::queryAccessibleInterface(view))
                : nullptr;
}

int AccessibleView::indexOfChild(const QAccessibleInterface* child) const {
    return indexOf(*this, child);
}

QAccessibleInterface* AccessibleView::childAt(int x, int y) const {
    return childUnder(*this, x, y);
}

QAccessibleInterface* AccessibleView::at(const std::vector<Element>& siblings, int index) const {
    if (index < 0 || index >= static_cast<int>(siblings.size())) return nullptr;
    return interfaceOf(siblings[static_cast<std::size_t>(index)]);
}

// A field speaks for itself, and so does a button that can have the focus.
QAccessibleInterface* AccessibleView::interfaceOf(const Element& element) const {
    if (QWidget* field = view_.realField(element.id)) {
        return QAccessible::queryAccessibleInterface(field);
    }
    const auto known = interfaces_.constFind(element.id);
    if (known != interfaces_.constEnd()) return QAccessible::accessibleInterface(*known);
    auto* made = new AccessibleElement(view_, element.id);
    interfaces_.insert(element.id, QAccessible::registerAccessibleInterface(made));
    return made;
}

const Element* AccessibleView::find(Id id) const {
    tree();
    const auto found = byId_.constFind(id);
    return found == byId_.constEnd() ? nullptr : *found;
}

QAccessibleInterface* AccessibleView::parentOf(Id id) const {
    tree();
    const auto parent = parents_.constFind(id);
    if (parent == parents_.constEnd()) return const_cast<AccessibleView*>(this);
    return interfaceOf(*byId_.value(*parent));
}

const std::vector<Element>& AccessibleView::tree() const {
    if (stale_) {
        stale_ = false;
        // As it was built last. Toolkit and readers ask in the middle of showing, hiding and
        // closing windows: nothing may be built anew there. What is pending is told when it is
        // there.
        tree_ = elements(view_.built());
        byId_.clear();
        parents_.clear();
        enter(tree_, std::nullopt);
    }
    return tree_;
}

void AccessibleView::enter(const std::vector<Element>& siblings, std::optional<Id> parent) const {
    for (const Element& element : siblings) {
        byId_.insert(element.id, &element);
        if (parent) parents_.insert(element.id, *parent);
        enter(element.children, element.id);
    }
}

void AccessibleView::rebuilt() {
    const std::vector<Element> before = std::exchange(tree_, {});
    const QHash<Id, const Element*> knownBefore = std::exchange(byId_, {});
    stale_ = true;
    tree();
    for (auto known = interfaces_.begin(); known != interfaces_.end();) {
        if (byId_.contains(known.key())) {
            ++known;
        } else {
            tell(QAccessible::accessibleInterface(known.value()), QAccessible::ObjectDestroyed);
            QAccessible::deleteAccessibleInterface(known.value());
            known = interfaces_.erase(known);
        }
    }
    if (knownBefore.isEmpty()) return;  // nobody has asked for anything yet
    for (auto now = byId_.cbegin(); now != byId_.cend(); ++now) {
        if (const Element* was = knownBefore.value(now.key())) {
            tellChange(*was, **now);
        } else {
            QAccessibleInterface* come = interfaceOf(**now);
            tell(come, QAccessible::ObjectCreated);
            if ((*now)->role == Role::notice) tell(come, QAccessible::ObjectShow);
        }
    }
}

void AccessibleView::tellChange(const Element& before, const Element& now) const {
    if (accessibleName(before) != accessibleName(now)) {
        tell(interfaceOf(now), QAccessible::NameChanged);
        // Another message in the place of the first is read out as well.
        if (now.role == Role::notice) tell(interfaceOf(now), QAccessible::ObjectShow);
    }
    if (now.range && before.range && now.range->now != before.range->now) {
        QAccessibleValueChangeEvent event(interfaceOf(now), now.range->now);
        QAccessible::updateAccessibility(&event);
    }
    QAccessible::State changed;
    changed.checked = before.checked != now.checked;
    changed.disabled = before.enabled != now.enabled;
    if (!changed.checked && !changed.disabled) return;
    QAccessibleStateChangeEvent event(interfaceOf(now), changed);
    QAccessible::updateAccessibility(&event);
}

}  // namespace kit
