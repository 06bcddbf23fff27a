#pragma once

#include <functional>
#include <string>

#include "base/Published.h"

namespace noonward {

/// The user's desktop session as far as programs talk to each other in it.
class Session {
 public:
    enum class Claim {
        first,    ///< this is the only copy in the session, but for one that is ending
        another,  ///< one is running already; it has been asked to come forward
        alone     ///< there is nobody to ask: go on
    };

    virtual ~Session() = default;

    /// Claims the program's name. `activated` is called whenever a later copy finds it taken.
    virtual Claim claim(std::function<void()> activated) = 0;

    /// Calls back when any program in the session announces `member`, whoever sends it.
    [[nodiscard]] virtual Subscription onSignal(const std::string& member,
                                                std::function<void()> action) = 0;

    /// Calls back when the program is asked to end: SIGTERM, SIGHUP or SIGINT.
    [[nodiscard]] virtual Subscription onEnd(std::function<void()> action) = 0;
};

}  // namespace noonward
