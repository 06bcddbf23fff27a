#pragma once

#include <vector>

#include "platform/Feedback.h"

namespace noonward::test {

/// Counts what would be felt and keeps what would be heard.
class FakeFeedback final : public Feedback {
 public:
    void levelChange() override { ++levelChanges; }
    void click(double volume) override { clicks.push_back(volume); }

    int levelChanges = 0;
    std::vector<double> clicks;  ///< the volume of each
};

}  // namespace noonward::test
