#pragma once

#include <string>

namespace noonward {

/// Why the program cannot be a Wayland client that places its windows itself
/// (wlr-layer-shell-unstable-v1), in a few words; empty when it can. Looks by a connection of its
/// own: comes before the application object, which decides for one platform.
std::string whyNotWayland();

}  // namespace noonward
