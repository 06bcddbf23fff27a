#pragma once

#include <functional>

#include "base/Published.h"

namespace noonward {

/// Tells when the system's time-zone setting may have changed. The held zone stays as it is: who
/// listens resets it (SystemZone::resetSystemTimeZone). Main thread only.
class ZoneChanges {
 public:
    virtual ~ZoneChanges() = default;
    /// Calls `listener` at each notice for as long as the subscription lives.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> listener) = 0;
};

}  // namespace noonward
