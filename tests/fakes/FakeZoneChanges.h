#pragma once

#include <utility>

#include "time/ZoneChanges.h"

namespace noonward::test {

/// Tells of a change of the system's zone when it is told to.
class FakeZoneChanges final : public ZoneChanges {
 public:
    Subscription subscribe(std::function<void()> listener) override {
        return notices_.subscribe(std::move(listener));
    }
    void announce() { notices_.announce(); }

 private:
    Announcer notices_;
};

}  // namespace noonward::test
