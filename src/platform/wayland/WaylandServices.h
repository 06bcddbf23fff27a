#pragma once

#include <memory>

#include "platform/DisplayServices.h"

namespace noonward {

/// The services of the Wayland compositor that the application runs on; null when it runs on none,
/// or on one that does not let programs place their windows.
std::unique_ptr<DisplayServices> connectWayland();

}  // namespace noonward
