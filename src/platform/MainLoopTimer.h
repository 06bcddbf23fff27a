#pragma once

#include "model/RepeatingTimer.h"

namespace noonward {

/// Repeats on the desktop's event loop. Ticks may come late together with others, so that an idle
/// computer wakes up less often.
class MainLoopTimer final : public RepeatingTimer {
 public:
    Subscription every(std::chrono::milliseconds interval, std::function<void()> action) override;
};

}  // namespace noonward
