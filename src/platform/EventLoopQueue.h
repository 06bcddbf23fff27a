#pragma once

#include <QObject>

#include "platform/MainQueue.h"

namespace noonward {

/// The main queue on Qt's event loop. What is still waiting when this goes is never run.
class EventLoopQueue final : public MainQueue {
 public:
    void post(std::function<void()> work) override;
    void after(std::chrono::milliseconds delay, std::function<void()> work) override;

 private:
    QObject context_;  // Qt drops what waits for it when it goes
};

}  // namespace noonward
