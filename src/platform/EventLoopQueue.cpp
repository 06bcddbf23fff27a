#include "platform/EventLoopQueue.h"

#include <QMetaObject>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace noonward {

void EventLoopQueue::post(std::function<void()> work) {
    QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

void EventLoopQueue::after(std::chrono::milliseconds delay, std::function<void()> work) {
    const auto wait = std::max(delay, std::chrono::milliseconds::zero());
    QTimer::singleShot(wait, Qt::PreciseTimer, &context_, std::move(work));
}

}  // namespace noonward
