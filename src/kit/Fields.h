#pragma once

#include <QMargins>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "kit/Placed.h"

class QWidget;

namespace kit {

/// A field that the user can type into, or a button that keys press, as a widget.
class RealField {
 public:
    virtual ~RealField() = default;
    virtual QWidget& widget() = 0;
    /// By how much the widget is larger than its view, points.
    virtual QMargins margins() const = 0;
    /// Brings it in step with its view. While it has the focus it keeps its own text.
    virtual void update(const Placed& field) = 0;
    virtual void caretToEnd() {}
    virtual void commit() {}
    virtual bool holdsKeys() const { return false; }
};

/// The real text and date fields of a hosted tree, kept by identity: selection, undo, clipboard and
/// input methods come with them. The buttons that keys press are among them: each has a widget that
/// takes the focus and shows that it has it, while the pointer still meets the tree.
class Fields {
 public:
    /// Fields become children of `host`, which must outlive this.
    explicit Fields(QWidget& host);
    ~Fields();

    /// Brings the fields in step with the tree, whose corner is at `origin` in the host. While the
    /// tree is not `resting` its fields are painted by it, and the real ones stay out of sight, but
    /// keep the focus and take the keys.
    void sync(const Placed& tree, const QPoint& origin, bool resting);

    /// The widget of a field; null where there is none.
    QWidget* widget(Id id) const;
    /// Gives a field the focus by a press at a point of the host: outside of the field itself, at
    /// the point of it that is nearest.
    void press(Id id, const QPointF& at);
    /// The field that has the focus; nothing where none has.
    std::optional<Id> focused() const;
    /// Whether that one is there for the keys: presses beside it leave them to it.
    bool focusedHoldsKeys() const;

    /// Has the focused field hand on what is half typed in it.
    void commit();

    /// Moves the insertion point of the focused field, if there is one, behind its text.
    void caretToEnd();

 private:
    void collect(const Placed& placed, const QRectF& visible);
    void removeOthers();
    void order();
    void place(RealField& field, const QRectF& rect, const QRectF& visible, const QPoint& origin);

    struct Wanted {
        const Placed* field;
        QRectF visible;  // the part that nothing around it cuts off
    };

    QWidget& host_;
    std::vector<Wanted> wanted_;  // in the order of the tree
    std::map<Id, std::unique_ptr<RealField>> fields_;
    std::vector<Id> order_;  // of the Tab key
};

}  // namespace kit
