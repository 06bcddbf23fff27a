#include "kit/Fields.h"

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
    QWidget* before = nullptr;
    for (const Wanted& wish : wanted_) {
        const Placed& placed = *wish.field;
        std::unique_ptr<RealField>& field = fields_[placed.id];
        const bool isNew = !field;
        if (isNew) field = makeRealField(placed, host_);
        field->update(placed);
        place(*field, placed.rect, resting ? wish.visible : QRectF(), origin);
        // The Tab key follows the tree.
        if (isNew && before) QWidget::setTabOrder(before, &field->widget());
        before = &field->widget();
        if (!isNew) continue;
        field->widget().show();
        const TextFieldSpec* text = placed.node->textField();
        if (text && text->focusOnAppear) field->widget().setFocus();
    }
    wanted_.clear();
}

void Fields::collect(const Placed& placed, const QRectF& visible) {
    if (placed.node->textField() || placed.node->dateField()) {
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
    const QRect place = rect.toAlignedRect().adjusted(-fieldMargin, 0, fieldMargin, 0);
    if (visible.isEmpty()) {
        widget.setGeometry(QRect(QPoint(0, -host_.height() - 1000), place.size()));
        return;
    }
    widget.setGeometry(place.translated(origin));
    if (visible == rect) {
        widget.clearMask();
    } else {
        widget.setMask(visible.toAlignedRect().translated(-place.topLeft()));
    }
}

QWidget* Fields::widget(Id id) const {
    const auto found = fields_.find(id);
    return found == fields_.end() ? nullptr : &found->second->widget();
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

void Fields::caretToEnd() {
    if (const auto id = focused()) fields_.at(*id)->caretToEnd();
}

}  // namespace kit
