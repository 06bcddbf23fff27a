#pragma once

#include <chrono>
#include <functional>

namespace noonward {

/// Runs work later on the main thread, in the order in which it falls due.
class MainQueue {
 public:
    virtual ~MainQueue() = default;
    /// In the next turn of the event loop.
    virtual void post(std::function<void()> work) = 0;
    /// No earlier than `delay` from now.
    virtual void after(std::chrono::milliseconds delay, std::function<void()> work) = 0;
};

}  // namespace noonward
