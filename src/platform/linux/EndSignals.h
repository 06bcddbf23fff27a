#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/Published.h"

namespace noonward {

/// SIGTERM, SIGHUP and SIGINT, told from the event loop. Caught from the first listener on, each
/// once: a second one ends the process on the spot. A signal that the process was started to
/// ignore stays ignored. At most one object at a time.
class EndSignals {
 public:
    EndSignals() = default;
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

    [[nodiscard]] Subscription onEnd(std::function<void()> action);

 private:
    void install();
    void drain();

    std::array<int, 2> pipe_{-1, -1};  // read end, write end
    std::unique_ptr<QSocketNotifier> notifier_;
    std::vector<int> caught_;
    Announcer ends_;
};

}  // namespace noonward
