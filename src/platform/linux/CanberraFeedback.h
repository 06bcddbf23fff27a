#pragma once

#include <memory>

#include "platform/Feedback.h"

namespace noonward {

/// Sounds by libcanberra, which is loaded with the first of them. Without it, or without a sound
/// card, it is silent. Nothing is felt: no device here can be asked to.
class CanberraFeedback final : public Feedback {
 public:
    CanberraFeedback();
    ~CanberraFeedback() override;

    void levelChange() override {}
    void click(double volume) override;

 private:
    class Player;
    std::unique_ptr<Player> player_;
};

}  // namespace noonward
