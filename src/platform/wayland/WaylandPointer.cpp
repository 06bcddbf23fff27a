#include "platform/wayland/WaylandPointer.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMetaObject>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace noonward {

WaylandPointer::WaylandPointer(WaylandLayers& layers) : layers_(layers) {
    qGuiApp->installEventFilter(this);
    changes_ = layers_.changes().subscribe([this] { giveWay(); });
}

WaylandPointer::~WaylandPointer() = default;

void WaylandPointer::waitFor(const QRectF& zone, std::function<void()> entered) {
    zone_ = zone;
    entered_ = std::move(entered);
    const QScreen* screen = QGuiApplication::screenAt(zone.center().toPoint());
    const QRect place = screen ? zone.toAlignedRect() & screen->geometry() : QRect();
    if (place.isEmpty()) return;
    if (!trigger_) {
        trigger_ = std::make_unique<QWidget>();
        trigger_->setObjectName(QStringLiteral("wait for the pointer"));
        layers_.keep(*trigger_, WaylandLayers::Kind::trigger);
    }
    trigger_->setGeometry(place);
    layers_.setInputRegion(*trigger_->windowHandle(), QRect(QPoint(), place.size()));
    // Where its monitor has gone it counts as shown, and is not.
    if (!layers_.surfaceOf(*trigger_->windowHandle())) trigger_->hide();
    trigger_->show();
    if (position_ && zone_.contains(*position_)) enteredZone();
}

void WaylandPointer::stopWaiting() {
    entered_ = nullptr;
    giveWay();
    disarmIfIdle();
}

bool WaylandPointer::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWindowType()) return false;
    switch (event->type()) {
        case QEvent::Enter:
            isAt(receiver, static_cast<const QEnterEvent*>(event)->globalPosition());
            break;
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
            isAt(receiver, static_cast<const QMouseEvent*>(event)->globalPosition());
            break;
        case QEvent::Leave:
        case QEvent::Hide:
            hasLeft(receiver);
            break;
        default:
            break;
    }
    return false;
}

void WaylandPointer::isAt(QObject* window, const QPointF& position) {
    window_ = window;
    position_ = position;
    if (entered_ && zone_.contains(position)) enteredZone();
}

void WaylandPointer::hasLeft(const QObject* window) {
    if (window_ != window) return;
    window_ = nullptr;
    position_.reset();
    QMetaObject::invokeMethod(
        this, [this] { disarmIfIdle(); }, Qt::QueuedConnection);
}

bool WaylandPointer::isInTrigger() const {
    return window_ && window_ == trigger_->windowHandle();
}

// In a later turn, unless it was called off by then.
void WaylandPointer::enteredZone() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!position_ || !zone_.contains(*position_)) return;
            if (const auto entered = std::exchange(entered_, nullptr)) entered();
            giveWay();  // the notch may be there still, on its way back
        },
        Qt::QueuedConnection);
}

// A window of ours that comes to lie there is not to wait for the pointer's next motion: some
// compositors look anew where the pointer is when a window comes, but not when one goes.
void WaylandPointer::giveWay() {
    if (!trigger_ || !trigger_->isVisible() || entered_) return;
    const bool isCovered =
        layers_.where(WaylandLayers::Kind::window).intersects(trigger_->geometry());
    if (isCovered) layers_.setInputRegion(*trigger_->windowHandle(), {});
}

void WaylandPointer::disarmIfIdle() {
    if (trigger_ && !entered_ && !isInTrigger()) trigger_->hide();
}

}  // namespace noonward
