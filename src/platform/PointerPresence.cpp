#include "platform/PointerPresence.h"

#include <QCoreApplication>
#include <QEvent>

namespace noonward {

PointerPresence::PointerPresence() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PointerPresence::eventFilter(QObject* receiver, QEvent* event) {
    if (!receiver->isWindowType()) return false;
    if (event->type() == QEvent::Enter) {
        window_ = receiver;
    } else if (event->type() == QEvent::Leave || event->type() == QEvent::Hide) {
        if (window_ == receiver) window_ = nullptr;
    }
    return false;
}

}  // namespace noonward
