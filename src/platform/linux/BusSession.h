#pragma once

#include <memory>

#include "platform/Session.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/MessageBus.h"

namespace noonward {

/// The desktop session by its message bus. The running copy answers as a desktop application does
/// (Desktop Entry Specification, "D-Bus Activation"): it can be activated, and takes no documents.
class BusSession final : public Session {
 public:
    explicit BusSession(SessionBus& bus);  ///< which must outlive this object
    ~BusSession() override;

    Claim claim(std::function<void()> activated) override;
    [[nodiscard]] Subscription onSignal(const std::string& member,
                                        std::function<void()> action) override;
    [[nodiscard]] Subscription onEnd(std::function<void()> action) override;

 private:
    class Application;

    SessionBus& bus_;
    std::unique_ptr<Application> application_;  // what others call, once claimed
    EndSignals ends_;
};

}  // namespace noonward
