#pragma once

namespace noonward {

/// Looks for newer versions of the program and shows what it finds.
class Updater {
 public:
    virtual ~Updater() = default;
    virtual void checkForUpdates() = 0;
};

}  // namespace noonward
