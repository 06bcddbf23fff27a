#include "app/KeyPanel.h"

#include <QBitmap>
#include <QScreen>
#include <QWindow>

namespace noonward {

KeyPanel::KeyPanel(WindowSystem& windows, std::unique_ptr<kit::FirstClickHostingView> content,
                   Options options)
    : windows_(windows), content_(content.release()), options_(std::move(options)) {
    content_->setParent(this);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    // Nobody sees a title, but screen readers say it.
    setWindowTitle(options_.title);
    content_->setAccessibleName(options_.title);
    windows_.adopt(*this, options_.level);
    setFocusProxy(content_);
    content_->onFrame = [this] { followFrame(); };
    // Another screen may have another scale.
    connect(windowHandle(), &QWindow::screenChanged, this, [this] { place(); });
}

void KeyPanel::setFrame(const QRectF& frame) {
    frame_ = frame;
    place();
}

// The margins lie outside the frame, and outside what the pointer can meet.
void KeyPanel::place() {
    const QRect window = frame_.toAlignedRect().marginsAdded(margins_);
    if (window.isEmpty()) return;
    setGeometry(window);
    const QRect inside = QRect(QPoint(0, 0), window.size()).marginsRemoved(margins_);
    windows_.setInputRegion(*this, inside);
    followFrame();
}

void KeyPanel::orderFront() {
    const WindowSystem::Translucency translucency = windows_.translucency();
    compositing_ = translucency != WindowSystem::Translucency::none;
    margins_ = options_.room + (compositing_ ? options_.shadow : QMargins());
    content_->setMargins(margins_);
    options_.onShow(translucency);
    place();
    show();
    windows_.raise(*this);
}

void KeyPanel::followFrame() {
    if (options_.outlined) takeOutline();
    if (!options_.blurred || !compositing_) return;
    // On its way, what is blurred would not be where the panel is.
    QRegion region;
    if (!content_->moving()) {
        const QRectF inside = QRectF(rect()).marginsRemoved(margins_);
        region = QRegion(options_.blurred(inside).toFillPolygon().toPolygon());
    }
    if (region != blurred_) windows_.setBlurBehind(*this, region);
    blurred_ = region;
}

void KeyPanel::takeOutline() {
    if (compositing_) return clearMask();
    const QImage shown = content_->picture(1);
    if (!shown.isNull()) setMask(QBitmap::fromImage(shown.createAlphaMask()));
}

// Qt would give the focus of a window that has none to the first button, which nobody asked for.
void KeyPanel::makeKey() {
    if (!focusWidget()) content_->setFocus(Qt::OtherFocusReason);
    windows_.takeKeys(*this);
}

void KeyPanel::orderOut() {
    if (!isVisible()) return;
    windows_.giveKeysBack(*this);
    hide();
    // Which control had the focus is over: the next showing begins without.
    content_->setFocus(Qt::OtherFocusReason);
}

void KeyPanel::resizeEvent(QResizeEvent*) {
    content_->setGeometry(rect());
}

}  // namespace noonward
