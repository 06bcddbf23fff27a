#pragma once

// What wayland-scanner makes of wlr-layer-shell-unstable-v1. A parameter in it has a C++ keyword
// for its name.
#define namespace namespace_
#include <wlr-layer-shell-unstable-v1.h>  // IWYU pragma: export
#undef namespace
