#pragma once

#include <QSocketNotifier>
#include <memory>

#include "platform/ClockChanges.h"
#include "platform/linux/MessageBus.h"

namespace noonward {

/// Jumps of the clock: by a timer that the kernel cancels when the clock is set (timerfd_create(2),
/// TFD_TIMER_CANCEL_ON_SET), and by what the login service says when the computer has woken up
/// (org.freedesktop.login1, PrepareForSleep).
class ClockWatch final : public ClockChanges {
 public:
    /// Such a timer, which never rings; negative where the kernel has none.
    static int timer();

    /// Takes the descriptor over: whenever it has something to read the clock has been set. The bus
    /// must outlive this object.
    explicit ClockWatch(SystemBus& bus, int descriptor = timer());
    ClockWatch(const ClockWatch&) = delete;
    ClockWatch& operator=(const ClockWatch&) = delete;
    ~ClockWatch() override;

    [[nodiscard]] Subscription onChange(std::function<void()> action) override;

 private:
    void takeReading();

    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
    Announcer changes_;
    BusListener sleeps_;
};

}  // namespace noonward
