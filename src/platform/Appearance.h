#pragma once

#include <functional>

#include "base/Published.h"

namespace noonward {

/// How the desktop wants its programs to look.
class Appearance {
 public:
    virtual ~Appearance() = default;
    virtual bool dark() const = 0;        ///< true where the desktop does not say
    virtual bool animations() const = 0;  ///< true where the desktop does not say
    [[nodiscard]] virtual Subscription onChange(std::function<void()> action) = 0;
};

}  // namespace noonward
