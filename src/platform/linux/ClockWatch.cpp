#include "platform/linux/ClockWatch.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <limits>
#include <utility>

namespace noonward {
namespace {

bool arm(int descriptor) {
    itimerspec never{};
    never.it_value.tv_sec = std::numeric_limits<decltype(never.it_value.tv_sec)>::max();
    return ::timerfd_settime(descriptor, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never,
                             nullptr) == 0;
}

}  // namespace

int ClockWatch::timer() {
    const int descriptor = ::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (descriptor < 0 || arm(descriptor)) return descriptor;
    ::close(descriptor);
    return -1;
}

ClockWatch::ClockWatch(SystemBus& bus, int descriptor)
    : descriptor_(descriptor), sleeps_([this](const QDBusMessage& signal) {
          const bool wakesUp =
              signal.signature() == QLatin1String("b") && !signal.arguments().constFirst().toBool();
          if (wakesUp) changes_.announce();
      }) {
    if (descriptor_ >= 0) {
        notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                         [this] { takeReading(); });
    }
    if (bus.connection().isConnected())
        sleeps_.listen(bus.connection(), QStringLiteral("/org/freedesktop/login1"),
                       QStringLiteral("org.freedesktop.login1.Manager"),
                       QStringLiteral("PrepareForSleep"), QStringLiteral("org.freedesktop.login1"));
}

ClockWatch::~ClockWatch() {
    notifier_.reset();
    if (descriptor_ >= 0) ::close(descriptor_);
}

Subscription ClockWatch::onChange(std::function<void()> action) {
    return changes_.subscribe(std::move(action));
}

// What cannot be read would be announced for ever.
void ClockWatch::takeReading() {
    std::uint64_t count = 0;
    const bool isRead = ::read(descriptor_, &count, sizeof(count)) > 0 || errno == ECANCELED;
    if (!isRead && errno != EAGAIN && errno != EINTR) return notifier_->setEnabled(false);
    arm(descriptor_);
    if (isRead) changes_.announce();
}

}  // namespace noonward
