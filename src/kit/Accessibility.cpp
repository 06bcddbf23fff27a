#include "kit/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

#include "kit/Description.h"
#include "kit/FirstClickHostingView.h"

namespace kit {
namespace {

QAccessible::Role platformRole(Role role) {
    switch (role) {
        case Role::text:
            return QAccessible::StaticText;
        case Role::button:
            return QAccessible::PushButton;
        case Role::cell:
            return QAccessible::Cell;
        case Role::row:
            return QAccessible::Row;
        case Role::group:
            return QAccessible::Grouping;
        case Role::value:
            return QAccessible::Slider;
        case Role::field:
            return QAccessible::EditableText;
    }
    return QAccessible::NoRole;
}

class AccessibleView;

int indexOf(const QAccessibleInterface& parent, const QAccessibleInterface* child) {
    for (int i = 0; i < parent.childCount(); ++i) {
        if (parent.child(i) == child) return i;
    }
    return -1;
}

// The one painted last where several lie over each other; null where none does.
QAccessibleInterface* childUnder(const QAccessibleInterface& parent, int x, int y) {
    for (int i = parent.childCount() - 1; i >= 0; --i) {
        QAccessibleInterface* child = parent.child(i);
        if (child && child->rect().contains(x, y)) return child;
    }
    return nullptr;
}

// One element of a view, known by its identity: it finds itself anew in every tree.
class AccessibleElement final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
    AccessibleElement(FirstClickHostingView& view, Id id) : view_(&view), id_(id) {}

    bool isValid() const override { return element() != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }

    QAccessibleInterface* parent() const override;
    int childCount() const override {
        const Element* self = element();
        return self ? static_cast<int>(self->children.size()) : 0;
    }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override {
        return indexOf(*this, child);
    }
    QAccessibleInterface* childAt(int x, int y) const override { return childUnder(*this, x, y); }

    QString text(QAccessible::Text which) const override {
        const Element* self = element();
        if (!self) return {};
        switch (which) {
            case QAccessible::Name:
                return QString::fromStdString(self->name);
            case QAccessible::Value:
                return QString::fromStdString(self->value);
            case QAccessible::Description:
            case QAccessible::Help:
                return QString::fromStdString(self->help);
            default:
                return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        const Element* self = element();
        if (!self || !view_) return {};
        const QPoint corner =
            view_->mapToGlobal(QPoint(view_->margins().left(), view_->margins().top()));
        return self->rect.toAlignedRect().translated(corner);
    }

    QAccessible::Role role() const override {
        const Element* self = element();
        if (self && self->checked) return QAccessible::CheckBox;
        return self ? platformRole(self->role) : QAccessible::NoRole;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.invisible = !view_ || !view_->isVisible();
        state.readOnly = true;
        if (const Element* self = element()) state.disabled = !self->enabled;
        if (const Element* self = element(); self && self->checked) {
            state.checkable = true;
            state.checked = *self->checked;
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        const Element* self = element();
        if (type != QAccessible::ActionInterface || !self || !self->press) return nullptr;
        return static_cast<QAccessibleActionInterface*>(this);
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        const Element* self = element();
        if (!self || !self->press || action != pressAction()) return;
        const auto press = self->press;  // held: it may build another tree
        press();
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
    AccessibleView* owner() const;
    const Element* element() const;

    QPointer<FirstClickHostingView> view_;
    Id id_;
};

class AccessibleView final : public QAccessibleWidget {
 public:
    explicit AccessibleView(FirstClickHostingView& view)
        : QAccessibleWidget(&view, QAccessible::Client), view_(view) {
        view_.onRebuilt = [this] { rebuilt(); };
    }
    ~AccessibleView() override {
        if (object()) view_.onRebuilt = nullptr;  // the view goes on without
        for (const QAccessible::Id interface : std::as_const(interfaces_))
            QAccessible::deleteAccessibleInterface(interface);
    }

    int childCount() const override { return static_cast<int>(tree().size()); }
    QAccessibleInterface* child(int index) const override { return at(tree(), index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return indexOf(*this, child);
    }
    QAccessibleInterface* childAt(int x, int y) const override { return childUnder(*this, x, y); }

    QAccessibleInterface* at(const std::vector<Element>& siblings, int index) const {
        if (index < 0 || index >= static_cast<int>(siblings.size())) return nullptr;
        const Element& element = siblings[static_cast<std::size_t>(index)];
        if (QWidget* field = view_.realField(element.id)) {
            return QAccessible::queryAccessibleInterface(field);
        }
        const auto known = interfaces_.constFind(element.id);
        if (known != interfaces_.constEnd()) return QAccessible::accessibleInterface(*known);
        auto* made = new AccessibleElement(view_, element.id);
        interfaces_.insert(element.id, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    const Element* find(Id id) const {
        tree();
        const auto found = byId_.constFind(id);
        return found == byId_.constEnd() ? nullptr : *found;
    }
    QAccessibleInterface* parentOf(Id id) const {
        tree();
        const auto parent = parents_.constFind(id);
        if (parent == parents_.constEnd()) return const_cast<AccessibleView*>(this);
        const auto known = interfaces_.constFind(*parent);
        return known == interfaces_.constEnd() ? const_cast<AccessibleView*>(this)
                                               : QAccessible::accessibleInterface(*known);
    }

    void rebuilt() {
        stale_ = true;
        tree();
        for (auto known = interfaces_.begin(); known != interfaces_.end();) {
            if (byId_.contains(known.key())) {
                ++known;
            } else {
                QAccessible::deleteAccessibleInterface(known.value());
                known = interfaces_.erase(known);
            }
        }
        QAccessibleEvent event(&view_, QAccessible::VisibleDataChanged);
        QAccessible::updateAccessibility(&event);
    }

 private:
    const std::vector<Element>& tree() const {
        const Placed& placed = view_.placed();  // pending changes are taken up first
        if (stale_) {
            stale_ = false;
            tree_ = elements(placed);
            byId_.clear();
            parents_.clear();
            index(tree_, std::nullopt);
        }
        return tree_;
    }
    void index(const std::vector<Element>& siblings, std::optional<Id> parent) const {
        for (const Element& element : siblings) {
            byId_.insert(element.id, &element);
            if (parent) parents_.insert(element.id, *parent);
            index(element.children, element.id);
        }
    }

    FirstClickHostingView& view_;
    mutable bool stale_ = true;
    mutable std::vector<Element> tree_;
    mutable QHash<Id, const Element*> byId_;
    mutable QHash<Id, Id> parents_;
    mutable QHash<Id, QAccessible::Id> interfaces_;
};

AccessibleView* viewInterface(FirstClickHostingView* view) {
    return view ? dynamic_cast<AccessibleView*>(QAccessible::queryAccessibleInterface(view))
                : nullptr;
}

AccessibleView* AccessibleElement::owner() const {
    return viewInterface(view_);
}
const Element* AccessibleElement::element() const {
    const AccessibleView* view = owner();
    return view ? view->find(id_) : nullptr;
}
QAccessibleInterface* AccessibleElement::parent() const {
    const AccessibleView* view = owner();
    return view ? view->parentOf(id_) : nullptr;
}
QAccessibleInterface* AccessibleElement::child(int index) const {
    const Element* self = element();
    const AccessibleView* view = owner();
    return self && view ? view->at(self->children, index) : nullptr;
}

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* view = dynamic_cast<FirstClickHostingView*>(object);
    return view ? new AccessibleView(*view) : nullptr;
}

}  // namespace

void installAccessibility() {
    QAccessible::installFactory(make);
}

}  // namespace kit
