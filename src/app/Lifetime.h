#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace noonward {

/// A member of an object that leaves callbacks with others who may live longer.
class Lifetime {
 public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// The same work, which does nothing any more once this is gone.
    std::function<void()> weakly(std::function<void()> work) const {
        return [held = std::weak_ptr<const bool>(alive_), work = std::move(work)] {
            if (!held.expired()) work();
        };
    }

 private:
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace noonward
