#pragma once

#include <chrono>
#include <utility>

#include "base/Published.h"
#include "model/RepeatingTimer.h"

namespace noonward::test {

/// A timer that ticks when it is told to.
class FakeTimer final : public RepeatingTimer {
 public:
    Subscription every(std::chrono::milliseconds asked, std::function<void()> action) override {
        interval = asked;
        return ticks_.subscribe(std::move(action));
    }
    void tick() { ticks_.announce(); }

    std::chrono::milliseconds interval{};  ///< as it was asked for last

 private:
    Announcer ticks_;
};

}  // namespace noonward::test
