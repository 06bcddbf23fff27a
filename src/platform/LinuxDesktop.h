#pragma once

#include <memory>
#include <string>

#include "platform/Desktop.h"

namespace noonward {

/// What stands behind the services on Linux: on a Wayland compositor that lets programs place their
/// windows, or else on an X server, which other compositors have inside them.
class LinuxDesktop {
 public:
    /// Comes before the application object: chooses the display that is opened, which is then the
    /// one that `display` names. Why there is none to open, in a few words; empty when there is.
    static std::string prepare();
    static std::string display();

    /// Null when the application does not run on the display that was chosen.
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
