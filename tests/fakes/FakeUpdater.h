#pragma once

#include "platform/Updater.h"

namespace noonward::test {

/// Counts how often it is asked to look for updates; what it finds is the test's to tell.
class FakeUpdater final : public Updater {
 public:
    void start(UpdateListener& told) override { listener = &told; }
    void checkForUpdates() override { ++checks; }

    UpdateListener* listener = nullptr;  ///< once started
    int checks = 0;
};

}  // namespace noonward::test
