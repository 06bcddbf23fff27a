#pragma once

#include "platform/LoginItem.h"

namespace noonward::test {

/// A desktop that may refuse to change what is started at login.
class FakeLoginItem final : public LoginItem {
 public:
    [[nodiscard]] bool enabled() const override { return on; }
    void set(bool wanted) override {
        if (!refuses) on = wanted;
    }

    bool on = false;
    bool refuses = false;
};

}  // namespace noonward::test
