#include "kit/RealFields.h"

#include <QDateEdit>
#include <QLineEdit>
#include <QWheelEvent>
#include <utility>

#include "kit/ButtonKeys.h"
#include "kit/ControlLook.h"
#include "kit/TextField.h"

namespace kit {
namespace {

// What the widgets keep free at either side of their text, whatever they are told; points.
constexpr QMargins besideText{2, 0, 2, 0};

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

// Qt tells screen readers of a name whenever one is set, even if it is the same.
void setReadName(QWidget& widget, const QString& name) {
    if (name != widget.accessibleName()) widget.setAccessibleName(name);
}

/// Without the focus the tree paints the text: with an ellipsis where it is cut.
class Line final : public QLineEdit {
 public:
    using QLineEdit::QLineEdit;

 protected:
    void paintEvent(QPaintEvent* event) override {
        if (hasFocus()) QLineEdit::paintEvent(event);
    }
};

/// A day, whose digits are typed part by part.
class Day final : public QDateEdit {
 public:
    explicit Day(QWidget* parent) : QDateEdit(parent) {
        setFocusPolicy(Qt::StrongFocus);
        lineEdit()->installEventFilter(this);
    }

 protected:
    // The wheel is for what the field stands in.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

    void paintEvent(QPaintEvent* event) override {
        if (hasFocus()) QDateEdit::paintEvent(event);
    }

    // Between two full digits there is no room for a third: a press takes the whole part.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !hasFocus()) return true;
        if (event->type() == QEvent::MouseButtonRelease) {
            const bool taken = QDateEdit::eventFilter(watched, event);
            setSelectedSection(currentSection());
            return taken;
        }
        return QDateEdit::eventFilter(watched, event);
    }
};

class LineField final : public RealField {
 public:
    LineField(const TextFieldSpec& wish, QWidget& host) : edit_(new Line(&host)) {
        edit_->setFrame(false);
        // Where the tree paints it, however it is written.
        edit_->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
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

    QMargins margins() const override { return besideText; }

    void update(const Placed& field) override {
        const TextFieldSpec before = std::exchange(wish_, *field.node->textField());
        const QString text = QString::fromStdString(wish_.text);
        // Where edits are stored trimmed, the space before the next word is not in the model yet.
        // In the focus it keeps what was typed, unless the model has changed by itself.
        const bool isTheirs = !edit_->hasFocus() || wish_.text != before.text;
        if (isTheirs && text != edit_->text().trimmed()) edit_->setText(text);
        if (wish_.focusRequests > before.focusRequests) edit_->setFocus();
        edit_->setPlaceholderText(QString::fromStdString(wish_.placeholder));
        setReadName(*edit_, wish_.name.empty() ? edit_->placeholderText()
                                               : QString::fromStdString(wish_.name));
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
    explicit DateField(QWidget& host) : edit_(new Day(&host)) {
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

    QMargins margins() const override { return besideText; }

    void update(const Placed& field) override {
        wish_ = *field.node->dateField();
        if (!edit_->hasFocus() && wish_.day != edit_->date()) edit_->setDate(wish_.day);
        setReadName(*edit_, QString::fromStdString(wish_.name));
        dress(*edit_, field.environment);
    }

    void commit() override { edit_->interpretText(); }

 private:
    Day* edit_;
    DateFieldSpec wish_;
};

class ButtonField final : public RealField {
 public:
    ButtonField(Id button, QWidget& host) : keys_(new ButtonKeys(button, host)) {}
    ~ButtonField() override { keys_->focused = nullptr; }

    QWidget& widget() override { return *keys_; }
    QMargins margins() const override { return ButtonKeys::around; }

    void update(const Placed& field) override {
        keys_->press = field.node->interaction()->press;
        keys_->focused = field.node->interaction()->focused;
        keys_->outline = outlineOf(field);
    }

 private:
    ButtonKeys* keys_;
};

}  // namespace

std::unique_ptr<RealField> makeRealField(const Placed& field, QWidget& host) {
    if (const TextFieldSpec* wish = field.node->textField()) {
        return std::make_unique<LineField>(*wish, host);
    }
    if (field.node->dateField()) return std::make_unique<DateField>(host);
    return std::make_unique<ButtonField>(field.id, host);
}

}  // namespace kit
