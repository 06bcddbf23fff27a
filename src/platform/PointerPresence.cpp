#include "platform/PointerPresence.h"

#include <QCoreApplication>
#include <QEvent>

namespace noonward {
namespace {

// Both windows are told in the same moment: what comes later is another story.
constexpr int sameMoment = 100;  // milliseconds

}  // namespace

PointerPresence::PointerPresence() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PointerPresence::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWindowType()) return false;
    switch (event->type()) {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
            window_ = receiver;
            break;
        case QEvent::Enter:
            if (isEntered()) window_ = receiver;
            break;
        case QEvent::Leave:
        case QEvent::Hide:
            if (window_ == receiver) window_ = nullptr;
            break;
        default:
            break;
    }
    return false;
}

bool PointerPresence::isEntered() const {
    return window_ || (handedOver_.isValid() && !handedOver_.hasExpired(sameMoment));
}

}  // namespace noonward
