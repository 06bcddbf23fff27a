#include "platform/MainLoopTimer.h"

#include <QTimer>
#include <memory>
#include <utility>

namespace noonward {

Subscription MainLoopTimer::every(std::chrono::milliseconds interval,
                                  std::function<void()> action) {
    auto timer = std::make_shared<QTimer>();
    timer->setTimerType(Qt::CoarseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, std::move(action));
    timer->start(interval);
    return Subscription([timer] { timer->stop(); });
}

}  // namespace noonward
