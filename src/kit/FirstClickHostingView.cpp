#include "kit/FirstClickHostingView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include "kit/Damage.h"
#include "kit/OffScreen.h"
#include "kit/Painting.h"

namespace kit {
namespace {

// Painting many small pieces costs more than painting all between them.
constexpr int mostPieces = 40;

bool takesPress(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->press;
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

// Where a scrolled view is now, and how far it can go, in points.
double position(const Placed& scrolled) {
    return scrolled.rect.top() - scrolled.children.front().rect.top();
}
double mostPosition(const Placed& scrolled) {
    return std::max(0.0, scrolled.children.front().rect.height() - scrolled.rect.height());
}

void scrollTo(const Placed& scrolled, double wanted) {
    const double target = std::clamp(wanted, 0.0, mostPosition(scrolled));
    if (target == position(scrolled)) return;
    const auto scroll = scrolled.node->interaction()->scrollTo;
    scroll(target);
}

bool scrolls(const Placed& placed) {
    const Interaction* interaction = placed.node->interaction();
    return interaction && interaction->scrollTo;
}

// The nodes from the root down to the one of that identity; empty without it.
std::vector<const Placed*> pathTo(const Placed& root, Id id) {
    if (root.id == id) return {&root};
    for (const Placed& child : root.children) {
        std::vector<const Placed*> path = pathTo(child, id);
        if (path.empty()) continue;
        path.insert(path.begin(), &root);
        return path;
    }
    return {};
}

// Names are the user's: none is to be taken for markup.
QString plain(const std::string& text) {
    const QString line = QString::fromStdString(text);
    return Qt::mightBeRichText(line) ? line.toHtmlEscaped() : line;
}

std::chrono::milliseconds frameLength(const QWidget& widget) {
    const QScreen* screen = widget.screen();
    const double rate = screen ? screen->refreshRate() : 60;
    return std::chrono::milliseconds(static_cast<int>(1000 / std::clamp(rate, 30.0, 240.0)));
}

}  // namespace

FirstClickHostingView::FirstClickHostingView(Animations& animations, Environment environment,
                                             Body body)
    : Animations::Member(animations),
      environment_(std::move(environment)),
      body_(std::move(body)),
      painted_(std::make_shared<Placed>()),
      fields_(*this) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    clock_.start();
    frames_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&frames_, &QTimer::timeout, this, [this] { present(); });
    QObject::connect(qApp, &QApplication::focusChanged, this, [this] { showFocusedField(); });
}

// A widget that goes still hands on its focus, when there are no fields any more.
FirstClickHostingView::~FirstClickHostingView() {
    qApp->disconnect(this);
}

double FirstClickHostingView::seconds() const {
    return static_cast<double>(clock_.nsecsElapsed()) / 1e9;
}

void FirstClickHostingView::invalidate() {
    pending_ = true;
    if (scheduled_ || !isVisible()) return;
    scheduled_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            scheduled_ = false;
            refresh();
        },
        Qt::QueuedConnection);
}

void FirstClickHostingView::settle(const std::optional<Curve>& curve) {
    if (!pending_) return;
    pending_ = false;
    const QSizeF before = presentation_.target().rect.size();
    presentation_.show(layOut(body_(), environment_), curve, seconds());
    present();
    if (onResized && presentation_.target().rect.size() != before) onResized();
    if (onRebuilt) onRebuilt();
    // What lies under a resting pointer may be something else now.
    if (pointer_) hoverAt(pointer_);
}

const Placed& FirstClickHostingView::placed() {
    refresh();
    return presentation_.target();
}

QSizeF FirstClickHostingView::fittingSize() {
    return placed().rect.size();
}

void FirstClickHostingView::setMargins(const QMargins& margins) {
    if (margins == margins_) return;
    margins_ = margins;
    present();
    update();
}

void FirstClickHostingView::present() {
    const std::shared_ptr<const Placed> now = presentation_.at(seconds());
    if (presentation_.moving()) {
        if (!frames_.isActive()) frames_.start(frameLength(*this));
    } else {
        frames_.stop();
        tiles_.forgetWhole();
    }
    fields_.sync(presentation_.target(), origin(), !presentation_.moving());

    QRegion region;
    for (const QRectF& rect : damage(*painted_, *now))
        region += rect.toAlignedRect();
    painted_ = now;
    if (region.isEmpty()) return;
    update(region.translated(origin()));
    if (onFrame) onFrame();
}

QImage FirstClickHostingView::picture(double pixelsPerPoint) {
    return paintOffScreen(*painted_, pixelsPerPoint, tiles_);
}

void FirstClickHostingView::paintEvent(QPaintEvent* event) {
    if (!painted_->node) return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(origin());
    QRegion region = event->region().translated(-origin());
    if (region.rectCount() > mostPieces) region = region.boundingRect();
    for (const QRect& piece : region) {
        painter.setClipRect(piece);
        Painting painting(painter, tiles_, piece);
        painting.leaveFieldsOut(!presentation_.moving());
        painting.paint(*painted_);
    }
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
    if (path.empty()) setFocus();
}

void FirstClickHostingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) return;
    const Id id = *std::exchange(pressed_, std::nullopt);
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

void FirstClickHostingView::showEvent(QShowEvent*) {
    refresh();
}

void FirstClickHostingView::leaveEvent(QEvent*) {
    hoverAt(std::nullopt);
}

void FirstClickHostingView::wheelEvent(QWheelEvent* event) {
    const auto path = hit(placed(), inView(event->position()), scrolls);
    if (path.empty()) return;
    // A notch of a wheel is 120 of its units, and three lines of text.
    constexpr double pointsPerUnit = 48.0 / 120;
    const double pixels = event->pixelDelta().y();
    scrollTo(*path.back(), position(*path.back()) -
                               (pixels != 0 ? pixels : event->angleDelta().y() * pointsPerUnit));
}

// A field that the focus has come to is scrolled into sight.
void FirstClickHostingView::showFocusedField() {
    const std::optional<Id> focused = fields_.focused();
    if (focused == std::exchange(focusedField_, focused) || !focused) return;
    const auto path = pathTo(presentation_.target(), *focused);
    for (const Placed* outer : path) {
        if (!scrolls(*outer)) continue;
        const QRectF field = path.back()->rect;
        const double down = std::max(0.0, field.bottom() - outer->rect.bottom());
        const double up = std::max(0.0, outer->rect.top() - field.top());
        scrollTo(*outer, position(*outer) + down - up);
    }
}

void FirstClickHostingView::hoverAt(const std::optional<QPointF>& point) {
    pointer_ = point;
    std::map<Id, Hover> now;
    std::vector<std::pair<Hover, QPointF>> calls;
    if (point) {
        for (const Placed* placed : hit(presentation_.target(), *point, takesHover)) {
            if (!takesHover(*placed)) continue;
            now.emplace(placed->id, placed->node->interaction()->hover);
            calls.emplace_back(placed->node->interaction()->hover, *point - placed->rect.topLeft());
        }
    }
    const std::map<Id, Hover> before = std::exchange(hovered_, now);
    for (const auto& [id, left] : before) {
        if (!now.contains(id)) left(std::nullopt);
    }
    for (const auto& [hover, at] : calls)
        hover(at);
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
