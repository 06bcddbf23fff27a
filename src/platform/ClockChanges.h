#pragma once

#include <functional>

#include "base/Published.h"

namespace noonward {

/// Tells when the computer's clock has jumped: it was set, or the computer has slept. Main thread
/// only.
class ClockChanges {
 public:
    virtual ~ClockChanges() = default;
    [[nodiscard]] virtual Subscription onChange(std::function<void()> action) = 0;
};

}  // namespace noonward
