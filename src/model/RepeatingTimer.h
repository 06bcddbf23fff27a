#pragma once

#include <chrono>
#include <functional>

#include "base/Published.h"

namespace noonward {

/// Calls back again and again on the main thread.
class RepeatingTimer {
 public:
    virtual ~RepeatingTimer() = default;
    /// Calls `action` first after one `interval`, for as long as the subscription lives.
    [[nodiscard]] virtual Subscription every(std::chrono::milliseconds interval,
                                             std::function<void()> action) = 0;
};

}  // namespace noonward
