#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <optional>
#include <vector>

#include "kit/Description.h"
#include "kit/FirstClickHostingView.h"

namespace kit {

/// A hosting view as screen readers see it: the elements of its tree. Each keeps its interface
/// through every rebuild, for as long as it is there; what has changed is told. It goes before the
/// view does.
class AccessibleView final : public QAccessibleWidget {
 public:
    explicit AccessibleView(FirstClickHostingView& view);
    ~AccessibleView() override;

    /// Null for no view, and for one that cannot be asked any more.
    static AccessibleView* of(FirstClickHostingView* view);

    int childCount() const override { return static_cast<int>(tree().size()); }
    QAccessibleInterface* child(int index) const override { return at(tree(), index); }
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    /// The interface of one of several elements of the tree; null beyond them.
    QAccessibleInterface* at(const std::vector<Element>& siblings, int index) const;
    /// Null where the tree has none of that identity.
    const Element* find(Id id) const;
    /// The interface of what an element stands in.
    QAccessibleInterface* parentOf(Id id) const;

 private:
    const std::vector<Element>& tree() const;
    void enter(const std::vector<Element>& siblings, std::optional<Id> parent) const;
    QAccessibleInterface* interfaceOf(const Element& element) const;
    void rebuilt();
    void tellChange(const Element& before, const Element& now) const;

    FirstClickHostingView& view_;
    mutable bool stale_ = true;
    mutable std::vector<Element> tree_;
    mutable QHash<Id, const Element*> byId_;
    mutable QHash<Id, Id> parents_;
    mutable QHash<Id, QAccessible::Id> interfaces_;  // of what is no field
};

}  // namespace kit
