#include "platform/linux/EndSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QObject>
#include <atomic>
#include <cerrno>

namespace noonward {
namespace {

std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free);  // a signal handler may touch no other

// All that may be done here is to wake the event loop up.
extern "C" void noteSignal(int) {
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = before;
}

}  // namespace

EndSignals::~EndSignals() {
    for (const int signal : caught_)
        ::signal(signal, SIG_DFL);
    writeEnd = -1;
    notifier_.reset();
    for (const int end : pipe_)
        if (end >= 0) ::close(end);
}

Subscription EndSignals::onEnd(std::function<void()> action) {
    if (!notifier_) install();
    return ends_.subscribe(std::move(action));
}

void EndSignals::install() {
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    writeEnd = pipe_[1];
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { drain(); });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction now {};
        if (::sigaction(signal, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) continue;
        struct sigaction action {};
        action.sa_handler = noteSignal;
        action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
        ::sigemptyset(&action.sa_mask);
        if (::sigaction(signal, &action, nullptr) == 0) caught_.push_back(signal);
    }
}

void EndSignals::drain() {
    std::array<char, 16> bytes{};
    bool came = false;
    while (::read(pipe_[0], bytes.data(), bytes.size()) > 0)
        came = true;
    if (came) ends_.announce();
}

}  // namespace noonward
