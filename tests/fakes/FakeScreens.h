#pragma once

#include <utility>

#include "platform/Screens.h"

namespace noonward::test {

/// The monitors a test sets up; the first is the main one.
class FakeScreens final : public Screens {
 public:
    std::vector<Screen> all() const override { return screens; }
    std::optional<Screen> main() const override {
        return screens.empty() ? std::nullopt : std::optional(screens.front());
    }
    double statusBarThickness() const override { return statusBar; }
    Subscription onChange(std::function<void()> action) override {
        return changes_.subscribe(std::move(action));
    }
    void announce() { changes_.announce(); }

    std::vector<Screen> screens;
    double statusBar = 0;

 private:
    Announcer changes_;
};

}  // namespace noonward::test
