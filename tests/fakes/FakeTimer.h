#pragma once

#include <chrono>
#include <memory>
#include <utility>

#include "base/Published.h"
#include "model/RepeatingTimer.h"

namespace noonward::test {

/// A timer that ticks when it is told to.
class FakeTimer final : public RepeatingTimer {
 public:
    Subscription every(std::chrono::milliseconds asked, std::function<void()> action) override {
        interval = asked;
        ++*running_;
        auto ticks = std::make_shared<Subscription>(ticks_.subscribe(std::move(action)));
        return Subscription([ticks, running = running_] {
            ticks->reset();
            --*running;
        });
    }
    int running() const { return *running_; }
    void tick() { ticks_.announce(); }

    std::chrono::milliseconds interval{};  ///< as it was asked for last

 private:
    Announcer ticks_;
    std::shared_ptr<int> running_ = std::make_shared<int>(0);
};

}  // namespace noonward::test
