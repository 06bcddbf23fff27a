#pragma once

#include <QAccessible>
#include <QPointer>

#include "kit/ButtonKeys.h"
#include "kit/Description.h"
#include "kit/FirstClickHostingView.h"

namespace kit {

/// What screen readers are told of one element of a view, and what they can do with it. It goes by
/// the element's identity and finds it anew in every tree; it is invalid while there is none.
class AccessibleElement final : public QAccessibleInterface,
                                public QAccessibleActionInterface,
                                public QAccessibleValueInterface {
 public:
    AccessibleElement(FirstClickHostingView& view, Id id) : widget_(&view), id_(id) {}
    /// Of a button that can have the focus.
    AccessibleElement(FirstClickHostingView& view, ButtonKeys& keys)
        : widget_(&view), id_(keys.button()), keys_(&keys) {}

    bool isValid() const override { return element() != nullptr; }
    QObject* object() const override { return keys_; }
    QWindow* window() const override;

    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    QString text(QAccessible::Text which) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

 private:
    const Element* element() const;
    /// Null once it is going: of a widget that is being destroyed only the QWidget is left.
    FirstClickHostingView* view() const;

    QPointer<QWidget> widget_;
    Id id_;
    QPointer<ButtonKeys> keys_;
};

/// What it is called: what may change is part of it, as no other property of a thing that is no
/// number reaches every screen reader.
QString accessibleName(const Element& element);

/// The child that is painted last at a point of the screen; null where there is none.
QAccessibleInterface* childUnder(const QAccessibleInterface& parent, int x, int y);
/// -1 for what is none of the children.
int indexOf(const QAccessibleInterface& parent, const QAccessibleInterface* child);

}  // namespace kit
