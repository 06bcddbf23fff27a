#pragma once

#include <map>
#include <tuple>
#include <utility>

#include "platform/HotKeys.h"

namespace noonward::test {

/// A desktop whose keys are free, or all taken.
class FakeHotKeys final : public HotKeys {
 public:
    Outcome registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                        std::function<void(std::uint32_t)> pressed) override {
        if (outcome == Outcome::registered) keys_[{keyCode, modifiers}] = {id, std::move(pressed)};
        return outcome;
    }
    /// False where nobody has registered that key.
    bool press(int keyCode, std::uint32_t modifiers) {
        const auto key = keys_.find({keyCode, modifiers});
        if (key == keys_.end()) return false;
        key->second.second(key->second.first);
        return true;
    }
    /// A press told of to all, whatever key it is of.
    void tellAll(std::uint32_t id) {
        for (const auto& [key, registered] : keys_)
            registered.second(id);
    }

    Outcome outcome = Outcome::registered;

 private:
    std::map<std::pair<int, std::uint32_t>,
             std::pair<std::uint32_t, std::function<void(std::uint32_t)>>>
        keys_;
};

}  // namespace noonward::test
