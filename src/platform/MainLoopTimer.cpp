#include "platform/MainLoopTimer.h"

#include <QTimer>
#include <memory>
#include <utility>

namespace noonward {

Subscription MainLoopTimer::every(std::chrono::milliseconds interval,
                                  std::function<void()> action) {
    // Later: what ends the subscription may be the timer's own tick.
    const std::shared_ptr<QTimer> timer(new QTimer, [](QTimer* ended) { ended->deleteLater(); });
    timer->setTimerType(Qt::CoarseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, std::move(action));
    timer->start(interval);
    return Subscription([timer] { timer->stop(); });
}

}  // namespace noonward
