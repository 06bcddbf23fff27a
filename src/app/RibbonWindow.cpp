#include "app/RibbonWindow.h"

#include <QPainter>

#include "app/Render.h"
#include "kit/Painting.h"

namespace noonward {

RibbonWindow::RibbonWindow(Store& store, NotchUI& ui) : panel_(store, ui, {}) {
    setTitle(QStringLiteral("Noonward"));
    rebuild();
    watches_ = {store.changes().subscribe([this] { rebuildSoon(); }),
                ui.changes().subscribe([this] { rebuildSoon(); }),
                panel_.changes().subscribe([this] { rebuildSoon(); })};
}

void RibbonWindow::rebuild() {
    pending_ = false;
    placed_ = kit::layOut(panel_.body(Scheme::dark), rootEnvironment());
    const QSize size(qCeil(placed_.rect.width()), qCeil(placed_.rect.height()));
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
    update();
}

// One operation of the store may announce several changes: one new tree is enough for all.
void RibbonWindow::rebuildSoon() {
    if (pending_) return;
    pending_ = true;
    QMetaObject::invokeMethod(
        this, [this] { rebuild(); }, Qt::QueuedConnection);
}

void RibbonWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(QRect(QPoint(0, 0), size()), Qt::black);
    kit::Painting painting(painter, tiles_, placed_.rect);
    painting.paint(placed_);
}

}  // namespace noonward
