#pragma once

#include <QHash>
#include <QPointer>

#include "kit/Placed.h"

class QLineEdit;
class QWidget;

namespace kit {

/// The real text fields of a hosted tree, kept by identity: selection, undo, clipboard and input
/// methods come with them. A focused field keeps its own text.
class Fields {
 public:
    /// Fields become children of `host`, which must outlive this.
    explicit Fields(QWidget& host) : host_(host) {}

    /// Brings the fields in step with the tree, whose corner is at `origin` in the host. While the
    /// tree is not `resting` its fields are painted by it, and the real ones stay out of sight, but
    /// keep the focus and take the keys.
    void sync(const Placed& tree, const QPoint& origin, bool resting);

    /// The widget of a field; null where there is none.
    QWidget* widget(Id id) const;

    /// Moves the insertion point of the focused field, if there is one, behind its text.
    void caretToEnd();

 private:
    QLineEdit* make(Id id, const Placed& field);
    void update(QLineEdit& edit, const Placed& field);

    QWidget& host_;
    QHash<Id, QLineEdit*> edits_;
    QHash<Id, TextFieldSpec> specs_;
};

}  // namespace kit
