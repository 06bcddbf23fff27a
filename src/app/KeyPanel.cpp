#include "app/KeyPanel.h"

#include <QBitmap>

namespace noonward {

KeyPanel::KeyPanel(WindowSystem& windows, std::unique_ptr<kit::FirstClickHostingView> content,
                   Options options)
    : windows_(windows), content_(content.release()), options_(std::move(options)) {
    content_->setParent(this);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    windows_.adopt(*this, options_.level);
    setFocusProxy(content_);
    if (options_.outlined) content_->onFrame = [this] { takeOutline(); };
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
    if (options_.blurred) windows_.setBlurBehind(*this, inside);
}

void KeyPanel::orderFront() {
    compositing_ = windows_.compositing();
    margins_ = compositing_ ? options_.shadow : QMargins();
    content_->setMargins(margins_);
    options_.onShow(compositing_);
    place();
    takeOutline();
    show();
    windows_.raise(*this);
}

void KeyPanel::takeOutline() {
    if (!options_.outlined) return;
    if (compositing_) return clearMask();
    const QImage shown = content_->picture(1);
    if (!shown.isNull()) setMask(QBitmap::fromImage(shown.createAlphaMask()));
}

void KeyPanel::makeKey() {
    windows_.takeKeys(*this);
}

void KeyPanel::orderOut() {
    if (!isVisible()) return;
    windows_.giveKeysBack(*this);
    hide();
}

void KeyPanel::resizeEvent(QResizeEvent*) {
    content_->setGeometry(rect());
}

}  // namespace noonward
