#pragma once

#include "platform/Updater.h"

namespace noonward::test {

/// Counts how often it is asked to look for updates.
class FakeUpdater final : public Updater {
 public:
    void checkForUpdates() override { ++checks; }

    int checks = 0;
};

}  // namespace noonward::test
