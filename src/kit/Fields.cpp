#include "kit/Fields.h"

#include <QLineEdit>

#include "kit/TextField.h"

namespace kit {
namespace {

// What a line edit keeps free at either side of its text, whatever it is told.
constexpr int ownMargin = 2;

QPoint outOfSight(const QWidget& host) {
    return {0, -host.height() - 1000};
}

}  // namespace

void Fields::sync(const Placed& tree, const QPoint& origin, bool resting) {
    QHash<Id, const Placed*> wanted;
    walk(tree, [&](const Placed& placed) {
        if (placed.node->textField()) wanted.insert(placed.id, &placed);
    });
    for (auto field = edits_.begin(); field != edits_.end();) {
        if (wanted.contains(field.key())) {
            ++field;
            continue;
        }
        // It may be the sender of the very signal that took it away.
        if (field.value()->hasFocus()) host_.setFocus();
        specs_.remove(field.key());
        field.value()->hide();
        field.value()->deleteLater();
        field = edits_.erase(field);
    }
    for (auto field = wanted.begin(); field != wanted.end(); ++field) {
        specs_[field.key()] = *field.value()->node->textField();
        QLineEdit* edit = edits_.value(field.key());
        if (!edit) edit = make(field.key(), *field.value());
        update(*edit, *field.value());
        const QRect place =
            field.value()->rect.toAlignedRect().adjusted(-ownMargin, 0, ownMargin, 0);
        edit->setGeometry(resting ? place.translated(origin)
                                  : QRect(outOfSight(host_), place.size()));
    }
}

QLineEdit* Fields::make(Id id, const Placed& field) {
    auto* edit = new QLineEdit(&host_);
    edits_.insert(id, edit);
    edit->setFrame(false);
    edit->setAttribute(Qt::WA_MacShowFocusRect, false);
    const TextFieldSpec& wish = *field.node->textField();
    edit->setText(QString::fromStdString(wish.text));
    // By identity: what the field calls back changes with every rebuild.
    QObject::connect(edit, &QLineEdit::textEdited, &host_, [this, id](const QString& text) {
        const auto callback = specs_.value(id).onEdit;
        if (callback) callback(text.toStdString());
    });
    QObject::connect(edit, &QLineEdit::returnPressed, &host_, [this, id] {
        const auto callback = specs_.value(id).onSubmit;
        if (callback) callback();
    });
    edit->show();
    if (wish.focusOnAppear) edit->setFocus();
    return edit;
}

void Fields::update(QLineEdit& edit, const Placed& field) {
    const TextFieldSpec& wish = *field.node->textField();
    const QString text = QString::fromStdString(wish.text);
    if (!edit.hasFocus() && text != edit.text().trimmed()) edit.setText(text);
    edit.setPlaceholderText(QString::fromStdString(wish.placeholder));
    edit.setFont(metrics(field.environment.font).font);

    QPalette palette = edit.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, field.environment.colour.qcolor());
    palette.setColor(QPalette::PlaceholderText,
                     field.environment.colour.opacity(placeholderOpacity).qcolor());
    if (palette != edit.palette()) edit.setPalette(palette);
}

QWidget* Fields::widget(Id id) const {
    return edits_.value(id);
}

void Fields::caretToEnd() {
    for (QLineEdit* edit : std::as_const(edits_)) {
        if (edit->hasFocus()) edit->end(false);
    }
}

}  // namespace kit
