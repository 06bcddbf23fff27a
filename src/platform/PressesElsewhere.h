#pragma once

#include <functional>

#include "base/Published.h"

namespace noonward {

/// Presses of a mouse button in other programs.
class PressesElsewhere {
 public:
    virtual ~PressesElsewhere() = default;
    /// Left and right button; presses in any window of this process do not count.
    [[nodiscard]] virtual Subscription onPress(std::function<void()> action) = 0;
};

}  // namespace noonward
