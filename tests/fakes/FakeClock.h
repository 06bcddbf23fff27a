#pragma once

#include "time/Instant.h"

namespace noonward::test {

/// A clock that stands still until it is set.
class FakeClock final : public Clock {
 public:
    explicit FakeClock(Instant shown) : time(shown) {}
    Instant now() const override { return time; }

    Instant time;
};

}  // namespace noonward::test
