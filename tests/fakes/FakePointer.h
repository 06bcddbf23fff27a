#pragma once

#include <utility>

#include "platform/MainQueue.h"
#include "platform/Pointer.h"

namespace noonward::test {

/// A pointer that a test moves.
class FakePointer final : public Pointer {
 public:
    explicit FakePointer(MainQueue& queue) : queue_(queue) {}

    std::optional<QPointF> position() const override { return at_; }
    void waitFor(const QRectF& zone, std::function<void()> entered) override {
        zone_ = zone;
        entered_ = std::move(entered);
        queue_.post([this] { look(); });
    }
    void stopWaiting() override { zone_.reset(); }

    void moveTo(std::optional<QPointF> point) {
        at_ = point;
        look();
    }
    /// Where it is waited for; nothing while nobody waits.
    const std::optional<QRectF>& zone() const { return zone_; }

 private:
    void look() {
        if (!zone_ || !at_ || !zone_->contains(*at_)) return;
        zone_.reset();
        std::exchange(entered_, nullptr)();
    }

    MainQueue& queue_;
    std::optional<QPointF> at_;
    std::optional<QRectF> zone_;
    std::function<void()> entered_;
};

}  // namespace noonward::test
