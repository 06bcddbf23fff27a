#pragma once

#include <memory>

#include "platform/DisplayServices.h"

namespace noonward {

/// The services of the X server that the application runs on; null when it runs on none.
std::unique_ptr<DisplayServices> connectX11();

}  // namespace noonward
