#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/Published.h"
#include "model/RepeatingTimer.h"
#include "platform/MainQueue.h"

namespace noonward::test {

/// An event loop whose time passes when a test lets it: what was put off and what repeats falls due
/// on one clock, in order.
class FakeMainQueue final : public MainQueue, public RepeatingTimer {
 public:
    using milliseconds = std::chrono::milliseconds;

    void post(std::function<void()> work) override { after(milliseconds(0), std::move(work)); }
    void after(milliseconds delay, std::function<void()> work) override {
        pending_.push_back({now_ + delay, next_++, std::move(work)});
    }
    Subscription every(milliseconds interval, std::function<void()> action) override {
        const auto repeating = std::make_shared<Repeating>(Repeating{interval, std::move(action)});
        repeat(repeating);
        ++timers_;
        return Subscription([this, repeating] {
            repeating->on = false;
            --timers_;
        });
    }

    /// Runs what falls due within the next `time`, which then has passed.
    void advance(milliseconds time) {
        const milliseconds end = now_ + time;
        while (const auto due = takeNext(end)) {
            now_ = due->at;
            due->work();
        }
        now_ = end;
    }
    /// The next turn of the event loop, and those that it brings at once.
    void turn() { advance(milliseconds(0)); }

    int timers() const { return timers_; }  ///< repeating ones that run

 private:
    struct Pending {
        milliseconds at;
        unsigned order;
        std::function<void()> work;
    };

    struct Repeating {
        milliseconds interval;
        std::function<void()> action;
        bool on = true;
    };

    void repeat(const std::shared_ptr<Repeating>& repeating) {
        after(repeating->interval, [this, repeating] {
            if (!repeating->on) return;
            repeat(repeating);
            repeating->action();
        });
    }

    std::unique_ptr<Pending> takeNext(milliseconds end) {
        const auto first = std::min_element(
            pending_.begin(), pending_.end(), [](const Pending& a, const Pending& b) {
                return std::pair(a.at, a.order) < std::pair(b.at, b.order);
            });
        if (first == pending_.end() || first->at > end) return nullptr;
        auto taken = std::make_unique<Pending>(std::move(*first));
        pending_.erase(first);
        return taken;
    }

    milliseconds now_{0};
    unsigned next_ = 0;
    int timers_ = 0;
    std::vector<Pending> pending_;
};

}  // namespace noonward::test
