#include "kit/FirstClickHostingView.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>

#include "kit/Damage.h"
#include "kit/OffScreen.h"
#include "kit/Painting.h"
#include "kit/Scrolling.h"

namespace kit {
namespace {

// Painting many small pieces costs more than painting all between them.
constexpr int mostPieces = 40;

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
    // A press on a button leaves the focus where it is.
    setFocusPolicy(Qt::NoFocus);
    clock_.start();
    frames_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&frames_, &QTimer::timeout, this, [this] { present(); });
    // Later: the focus may change while the fields are being brought in step with a tree.
    QObject::connect(
        qApp, &QApplication::focusChanged, this, [this] { showFocusedField(); },
        Qt::QueuedConnection);
}

// A widget that goes still hands on its focus, when there are no fields any more.
FirstClickHostingView::~FirstClickHostingView() {
    qApp->disconnect(this);
    const auto gone = onGone;
    if (gone) gone();
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

// What has appeared may have been scrolled into sight: by another tree.
void FirstClickHostingView::refresh() {
    takeUp(std::nullopt);
    takeUp(std::nullopt);
}

// What nobody sees is taken up when it is shown, or asked for. What has appeared is scrolled into
// sight on the way.
void FirstClickHostingView::settle(const std::optional<Curve>& curve) {
    if (!isVisible()) return;
    takeUp(curve);
    takeUp(curve);
}

void FirstClickHostingView::takeUp(const std::optional<Curve>& curve) {
    if (!pending_ || busy_) return;
    pending_ = false;
    const QSizeF before = presentation_.target().rect.size();
    presentation_.show(layOut(body_(), environment_), curve, seconds());
    present();
    if (onResized && presentation_.target().rect.size() != before) onResized();
    tellRebuilt();
    forgetLostPositions(presentation_.target());
    showAppeared(presentation_.target(), revealed_);
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
    {
        // Fields that come and go move the focus: what changes by that waits until they are in
        // step.
        const QScopedValueRollback guard(busy_, true);
        fields_.sync(presentation_.target(), origin(), !presentation_.moving());
    }

    QRegion region;
    for (const QRectF& rect : damage(*painted_, *now))
        region += rect.toAlignedRect();
    painted_ = now;
    if (region.isEmpty()) return;
    update(region.translated(origin()));
    if (onFrame) onFrame();
}

// Screen readers ask back as they are told: of this tree, not of one that comes meanwhile.
void FirstClickHostingView::tellRebuilt() {
    const QScopedValueRollback guard(busy_, true);
    if (onRebuilt) onRebuilt();
}

QImage FirstClickHostingView::picture(double pixelsPerPoint) {
    const QRectF whole = painted_->rect.marginsAdded(QMarginsF(margins_));
    return paintOffScreen(*painted_, whole, pixelsPerPoint, tiles_);
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
        Attention attention = attention_;
        attention.focused = fields_.focused();
        if (!presentation_.moving()) attention.leftOut = attention.focused;
        painting.setAttention(attention);
        painting.paint(*painted_);
    }
}

void FirstClickHostingView::showEvent(QShowEvent*) {
    refresh();
}

void FirstClickHostingView::hideEvent(QHideEvent*) {
    pressed_.reset();
    hoverAt(std::nullopt);
    hideTooltip();
}

}  // namespace kit
