#pragma once

#include "time/SystemZone.h"

namespace noonward::test {

/// A computer whose zone is set by assigning `setting`; the old one is held until the reset.
class FakeSystemZone final : public SystemZone {
 public:
    explicit FakeSystemZone(TimeZone zone) : setting(zone), held_(zone) {}

    TimeZone current() const override { return held_; }
    void resetSystemTimeZone() override { held_ = setting; }
    void moveTo(TimeZone zone) { held_ = setting = zone; }

    TimeZone setting;

 private:
    TimeZone held_;
};

}  // namespace noonward::test
