#include "platform/wayland/WaylandPressesElsewhere.h"

#include <QApplication>
#include <QEvent>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace noonward {

WaylandPressesElsewhere::WaylandPressesElsewhere(WaylandLayers& layers) : layers_(layers) {
    const auto later = [this] {
        QMetaObject::invokeMethod(
            this, [this] { follow(); }, Qt::QueuedConnection);
    };
    changes_ = layers_.changes().subscribe(later);
    const auto anew = [this] {
        catchers_.clear();
        follow();
    };
    connect(qGuiApp, &QGuiApplication::screenAdded, this, anew, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, anew, Qt::QueuedConnection);
}

WaylandPressesElsewhere::~WaylandPressesElsewhere() = default;

Subscription WaylandPressesElsewhere::onPress(std::function<void()> action) {
    ++listeners_;
    follow();
    auto heard = std::make_shared<Subscription>(presses_.subscribe(std::move(action)));
    return Subscription([this, heard, guard = QPointer<QObject>(this)] {
        heard->reset();
        if (!guard) return;
        --listeners_;
        follow();
    });
}

void WaylandPressesElsewhere::follow() {
    const bool wanted = listeners_ > 0 || QApplication::activePopupWidget();
    if (!wanted) return catchers_.clear();
    if (catchers_.empty()) cover();
    digHoles();
}

void WaylandPressesElsewhere::cover() {
    for (const QScreen* screen : QGuiApplication::screens()) {
        auto catcher = std::make_unique<QWidget>();
        catcher->setObjectName(QStringLiteral("presses elsewhere"));
        layers_.keep(*catcher, WaylandLayers::Kind::catcher);
        catcher->setGeometry(screen->geometry());
        catcher->windowHandle()->installEventFilter(this);
        catchers_.push_back(std::move(catcher));
    }
    digHoles();
    for (const auto& catcher : catchers_)
        catcher->show();
}

void WaylandPressesElsewhere::digHoles() {
    const QRegion ours =
        layers_.where(WaylandLayers::Kind::window) | layers_.where(WaylandLayers::Kind::popup);
    for (const auto& catcher : catchers_)
        layers_.setInputRegion(
            *catcher->windowHandle(),
            QRegion(catcher->geometry()).subtracted(ours).translated(-catcher->pos()));
}

// The listener may have it gone: the press is dealt with first.
bool WaylandPressesElsewhere::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress) return false;
    const auto button = static_cast<const QMouseEvent*>(event)->button();
    if (button == Qt::LeftButton || button == Qt::RightButton)
        QMetaObject::invokeMethod(
            this, [this] { presses_.announce(); }, Qt::QueuedConnection);
    return false;
}

}  // namespace noonward
