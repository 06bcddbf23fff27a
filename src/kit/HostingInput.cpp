#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "kit/FirstClickHostingView.h"
#include "kit/Node.h"
#include "kit/Scrolling.h"

// What the user does with the pointer, as far as a hosting view hands it to what it shows.

namespace kit {
namespace {

bool takesPress(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->press;
}
bool isControl(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->isControl;
}
bool takesHover(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->hover;
}
bool hasTooltip(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && !interaction->tooltip.empty();
}
bool hasMenu(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && !interaction->menu.empty();
}

bool isDefault(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->keys == PressKeys::spaceAndReturn;
}

bool isField(const Placed& placed) {
    return placed.node->textField() || placed.node->dateField();
}

bool isFieldBox(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->holdsField;
}

std::optional<Cursor> cursorOf(const Placed& placed) {
    if (isField(placed)) return Cursor::text;
    const Interaction* interaction = placed.node->interaction();
    return interaction ? interaction->cursor : std::nullopt;
}

Qt::CursorShape shapeOf(std::optional<Cursor> cursor) {
    switch (cursor.value_or(Cursor::arrow)) {
        case Cursor::arrow:
            return Qt::ArrowCursor;
        case Cursor::text:
            return Qt::IBeamCursor;
        case Cursor::grab:
            return Qt::OpenHandCursor;
    }
    return Qt::ArrowCursor;
}

// Names are the user's: none is to be taken for markup.
QString plain(const std::string& text) {
    const QString line = QString::fromStdString(text);
    return Qt::mightBeRichText(line) ? line.toHtmlEscaped() : line;
}

}  // namespace

// The fields let the Return key through, and so do the buttons.
void FirstClickHostingView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const Placed* button =
        isReturn && !event->isAutoRepeat() ? kit::find(placed(), isDefault) : nullptr;
    if (!button) return QWidget::keyPressEvent(event);
    const auto press = button->node->interaction()->press;
    press();
}

void FirstClickHostingView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        const auto path = hit(placed(), inView(event->position()), hasMenu);
        if (!path.empty()) {
            popUp(path.back()->node->interaction()->menu, event->globalPosition().toPoint());
        }
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    const auto path = hit(placed(), inView(event->position()), takesPress);
    pressed_ = path.empty() ? std::nullopt : std::optional(path.back()->id);
    hoverAt(inView(event->position()));
    if (!path.empty()) return;
    // The box around a field is the field's. And while something glides the real fields are out of
    // sight, and out of the pointer's reach.
    const auto box = hit(placed(), inView(event->position()), isFieldBox);
    const auto around = box.empty() ? hit(placed(), inView(event->position()), isField) : box;
    const Placed* field = around.empty() ? nullptr : kit::find(*around.back(), isField);
    if (field) {
        fields_.press(field->id, event->position());
    } else if (!fields_.focusedHoldsKeys()) {
        setFocus();
    }
}

void FirstClickHostingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) return;
    const Id id = *std::exchange(pressed_, std::nullopt);
    attend();
    fields_.commit();
    const auto path = hit(placed(), inView(event->position()), takesPress);
    if (path.empty() || path.back()->id != id) return;
    // Held: what it does may build another tree.
    const auto press = path.back()->node->interaction()->press;
    QToolTip::hideText();
    press();
}

void FirstClickHostingView::mouseMoveEvent(QMouseEvent* event) {
    hoverAt(inView(event->position()));
}

void FirstClickHostingView::leaveEvent(QEvent*) {
    hoverAt(std::nullopt);
}

void FirstClickHostingView::wheelEvent(QWheelEvent* event) {
    const auto path = hit(placed(), inView(event->position()), scrolls);
    if (path.empty()) return;
    // A notch of a wheel is 120 of its units, and three lines of text.
    constexpr double pointsPerUnit = 48.0 / 120;
    const double by = event->pixelDelta().isNull() ? event->angleDelta().y() * pointsPerUnit
                                                   : event->pixelDelta().y();
    scrollBy(*path.back(), -by);
}

// A field that the focus has come to is scrolled into sight.
void FirstClickHostingView::showFocusedField() {
    const std::optional<Id> focused = fields_.focused();
    if (focused == std::exchange(focusedField_, focused)) return;
    update();  // which field shows itself
    if (focused) scrollIntoSight(presentation_.target(), *focused);
}

// At once: nothing is built anew for it.
void FirstClickHostingView::attend() {
    const auto path =
        pointer_ ? hit(presentation_.target(), *pointer_, isControl) : std::vector<const Placed*>();
    const Placed* control = path.empty() ? nullptr : path.back();
    Attention now;
    if (control && control->node->interaction()->enabled) {
        if (pressed_ == control->id) now.held = control->id;
        if (!pressed_) now.hovered = control->id;
    }
    const Attention before = std::exchange(attention_, now);
    if (now == before) return;
    for (const Attention& which : {before, now}) {
        const auto id = which.held ? which.held : which.hovered;
        const auto to = id ? pathTo(*painted_, *id) : std::vector<const Placed*>();
        if (!to.empty()) update(to.back()->bounds.toAlignedRect().translated(origin()));
    }
}

void FirstClickHostingView::showCursor() {
    const auto hasCursor = [](const Placed& placed) { return cursorOf(placed).has_value(); };
    const auto path =
        pointer_ ? hit(presentation_.target(), *pointer_, hasCursor) : std::vector<const Placed*>();
    const Qt::CursorShape shape = shapeOf(path.empty() ? std::nullopt : cursorOf(*path.back()));
    if (shape != cursor().shape()) setCursor(shape);
}

void FirstClickHostingView::hoverAt(const std::optional<QPointF>& point) {
    pointer_ = point;
    attend();
    showCursor();
    std::map<Id, OnHover> now;
    std::vector<std::pair<OnHover, Hover>> calls;
    if (point) {
        const bool onControl = !hit(presentation_.target(), *point, isControl).empty();
        for (const Placed* placed : hit(presentation_.target(), *point, takesHover)) {
            if (!takesHover(*placed)) continue;
            now.emplace(placed->id, placed->node->interaction()->hover);
            calls.emplace_back(placed->node->interaction()->hover,
                               Hover{*point - placed->rect.topLeft(), onControl});
        }
    }
    const std::map<Id, OnHover> before = std::exchange(hovered_, now);
    for (const auto& [id, left] : before) {
        if (!now.contains(id)) left(std::nullopt);
    }
    for (const auto& [tell, hover] : calls)
        tell(hover);
}

bool FirstClickHostingView::hasControlAt(const QPointF& point) {
    return !hit(placed(), point, isControl).empty();
}

// Qt would let it stand for another moment: over a window that is gone.
void FirstClickHostingView::hideTooltip() {
    if (auto* shown = findChild<QWidget*>(QStringLiteral("qtooltip_label"))) shown->hide();
}

bool FirstClickHostingView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto path = hit(placed(), inView(help->pos()), hasTooltip);
        if (path.empty()) {
            QToolTip::hideText();
        } else {
            const Placed& over = *path.back();
            QToolTip::showText(help->globalPos(), plain(over.node->interaction()->tooltip), this,
                               over.rect.toAlignedRect().translated(origin()));
        }
        return true;
    }
    // Two presses in quick succession are two presses.
    if (event->type() == QEvent::MouseButtonDblClick) {
        mousePressEvent(static_cast<QMouseEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

// The menu stands on its own: it stays when the window it was asked for from is hidden.
void FirstClickHostingView::popUp(const std::vector<MenuItem>& items, const QPoint& at) {
    auto* menu = new QMenu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuItem& item : items) {
        if (item.title.empty()) {
            menu->addSeparator();
        } else {
            // Later: what it does must not happen while the menu is still closing.
            QAction* action =
                menu->addAction(QString::fromStdString(item.title).replace('&', "&&"));
            QObject::connect(action, &QAction::triggered, this, item.choose, Qt::QueuedConnection);
        }
    }
    menu->popup(at);
}

}  // namespace kit
