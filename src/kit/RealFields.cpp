#include "kit/RealFields.h"

#include <QDateEdit>
#include <QLineEdit>

#include "kit/TextField.h"

namespace kit {
namespace {

QPalette paletteFor(const QWidget& widget, const Environment& environment) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, environment.colour.qcolor());
    palette.setColor(QPalette::PlaceholderText,
                     environment.colour.opacity(placeholderOpacity).qcolor());
    return palette;
}

void dress(QWidget& widget, const Environment& environment) {
    widget.setFont(metrics(environment.font).font);
    const QPalette palette = paletteFor(widget, environment);
    if (palette != widget.palette()) widget.setPalette(palette);
}

class LineField final : public RealField {
 public:
    LineField(const TextFieldSpec& wish, QWidget& host) : edit_(new QLineEdit(&host)) {
        edit_->setFrame(false);
        edit_->setText(QString::fromStdString(wish.text));
        // What the field calls back changes with every rebuild.
        QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this](const QString& text) {
            const auto callback = wish_.onEdit;
            if (callback) callback(text.toStdString());
        });
        QObject::connect(edit_, &QLineEdit::returnPressed, edit_, [this] {
            const auto callback = wish_.onSubmit;
            if (callback) callback();
        });
    }
    ~LineField() override { edit_->disconnect(edit_); }

    QWidget& widget() override { return *edit_; }

    void update(const Placed& field) override {
        wish_ = *field.node->textField();
        const QString text = QString::fromStdString(wish_.text);
        // Where edits are stored trimmed, the space before the next word is not in the model yet.
        if (!edit_->hasFocus() && text != edit_->text().trimmed()) edit_->setText(text);
        edit_->setPlaceholderText(QString::fromStdString(wish_.placeholder));
        edit_->setAccessibleName(edit_->placeholderText());
        dress(*edit_, field.environment);
    }

    void caretToEnd() override { edit_->end(false); }
    bool holdsKeys() const override { return wish_.focusOnAppear; }

 private:
    QLineEdit* edit_;
    TextFieldSpec wish_;
};

class DateField final : public RealField {
 public:
    explicit DateField(QWidget& host) : edit_(new QDateEdit(&host)) {
        edit_->setFrame(false);
        edit_->setButtonSymbols(QAbstractSpinBox::NoButtons);
        edit_->setDisplayFormat(dateFormat());
        edit_->setLocale(QLocale::c());  // the digits that the painted twin has
        QObject::connect(edit_, &QDateEdit::userDateChanged, edit_, [this](QDate day) {
            const auto callback = wish_.onChange;
            if (callback && day != wish_.day) callback(day);
        });
    }
    ~DateField() override { edit_->disconnect(edit_); }

    QWidget& widget() override { return *edit_; }

    void update(const Placed& field) override {
        wish_ = *field.node->dateField();
        if (!edit_->hasFocus() && wish_.day != edit_->date()) edit_->setDate(wish_.day);
        dress(*edit_, field.environment);
    }

    void caretToEnd() override {}
    bool holdsKeys() const override { return false; }

 private:
    QDateEdit* edit_;
    DateFieldSpec wish_;
};

}  // namespace

std::unique_ptr<RealField> makeRealField(const Placed& field, QWidget& host) {
    if (const TextFieldSpec* wish = field.node->textField()) {
        return std::make_unique<LineField>(*wish, host);
    }
    return std::make_unique<DateField>(host);
}

}  // namespace kit
