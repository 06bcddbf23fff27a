#pragma once

namespace noonward {

/// Whether there is a Wayland compositor that lets programs place windows along the screen's edges
/// (wlr-layer-shell-unstable-v1), by a connection of its own: comes before the application object,
/// which decides for one platform.
bool compositorHasLayers();

}  // namespace noonward
