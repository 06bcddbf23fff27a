#pragma once

#include <memory>

#include "platform/Desktop.h"

namespace noonward {

/// What stands behind the services on an X server.
class LinuxDesktop {
 public:
    /// Comes before the application object: nothing is to start what the session does not have.
    static void prepare();

    /// Null when the application does not run on an X server.
    static std::unique_ptr<LinuxDesktop> connect();
    ~LinuxDesktop();

    /// They live as long as this.
    Desktop services();

 private:
    struct Services;
    explicit LinuxDesktop(std::unique_ptr<Services> services);

    std::unique_ptr<Services> services_;
};

}  // namespace noonward
