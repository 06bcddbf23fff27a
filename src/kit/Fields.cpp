#include "kit/Fields.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <algorithm>

#include "kit/RealFields.h"

namespace kit {

Fields::Fields(QWidget& host) : host_(host) {}
Fields::~Fields() = default;

void Fields::sync(const Placed& tree, const QPoint& origin, bool resting) {
    wanted_.clear();
    if (tree.node) collect(tree, tree.bounds);
    removeOthers();
    for (const Wanted& wish : wanted_) {
        const Placed& placed = *wish.field;
        std::unique_ptr<RealField>& field = fields_[placed.id];
        const bool isNew = !field;
        if (isNew) field = makeRealField(placed, host_);
        field->update(placed);
        place(*field, placed.rect, resting ? wish.visible : QRectF(), origin);
        if (!isNew) continue;
        field->widget().show();
        const TextFieldSpec* text = placed.node->textField();
        if (text && text->focusOnAppear) field->widget().setFocus();
    }
    order();
    wanted_.clear();
}

// The Tab key follows the tree.
void Fields::order() {
    std::vector<Id> now;
    for (const Wanted& wish : wanted_)
        now.push_back(wish.field->id);
    if (now == order_) return;
    order_ = now;
    QWidget* before = &host_;
    for (const Id id : order_) {
        QWidget* widget = &fields_.at(id)->widget();
        QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

void Fields::collect(const Placed& placed, const QRectF& visible) {
    const Interaction* interaction = placed.node->interaction();
    if (interaction && interaction->inert) return;
    if (placed.node->textField() || placed.node->dateField() ||
        (interaction && interaction->keys != PressKeys::none)) {
        wanted_.push_back({&placed, visible & placed.rect});
        return;
    }
    const QRectF inside = placed.node->cutsOff() ? visible & placed.rect : visible;
    for (const Placed& child : placed.children)
        collect(child, inside);
}

void Fields::removeOthers() {
    for (auto field = fields_.begin(); field != fields_.end();) {
        const auto same = [&](const Wanted& wish) { return wish.field->id == field->first; };
        if (std::any_of(wanted_.begin(), wanted_.end(), same)) {
            ++field;
            continue;
        }
        QWidget& widget = field->second->widget();
        if (widget.isAncestorOf(host_.focusWidget()) || widget.hasFocus()) host_.setFocus();
        widget.hide();
        // It may be the sender of the very signal that took it away.
        widget.deleteLater();
        field = fields_.erase(field);
    }
}

void Fields::place(RealField& field, const QRectF& rect, const QRectF& visible,
                   const QPoint& origin) {
    QWidget& widget = field.widget();
    const QRect place = rect.toAlignedRect().marginsAdded(field.margins());
    if (visible.isEmpty()) {
        widget.setGeometry(QRect(QPoint(0, -host_.height() - 1000), place.size()));
        return;
    }
    widget.setGeometry(place.translated(origin));
    if (visible == rect) {
        widget.clearMask();
    } else {
        widget.setMask(
            visible.toAlignedRect().marginsAdded(field.margins()).translated(-place.topLeft()));
    }
}

QWidget* Fields::widget(Id id) const {
    const auto found = fields_.find(id);
    return found == fields_.end() ? nullptr : &found->second->widget();
}

void Fields::press(Id id, const QPointF& at) {
    QWidget* field = widget(id);
    if (!field) return;
    field->setFocus(Qt::MouseFocusReason);
    const QRectF inside = QRectF(field->rect()).adjusted(0, 0, -1, -1);
    const QPointF local = field->mapFrom(&host_, at.toPoint());
    const QPointF nearest(std::clamp(local.x(), inside.left(), inside.right()),
                          std::clamp(local.y(), inside.top(), inside.bottom()));
    // A date's digits are in a field of their own within its widget.
    QWidget* under = field->childAt(nearest.toPoint());
    QWidget* receiver = under ? under : field;
    const QPointF place = receiver->mapFrom(field, nearest.toPoint());
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, receiver->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(receiver, &event);
    }
}

std::optional<Id> Fields::focused() const {
    for (const auto& [id, field] : fields_) {
        if (field->widget().hasFocus()) return id;
    }
    return std::nullopt;
}

bool Fields::focusedHoldsKeys() const {
    const auto id = focused();
    return id && fields_.at(*id)->holdsKeys();
}

void Fields::commit() {
    if (const auto id = focused()) fields_.at(*id)->commit();
}

void Fields::caretToEnd() {
    if (const auto id = focused()) fields_.at(*id)->caretToEnd();
}

}  // namespace kit
