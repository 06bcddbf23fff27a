#pragma once

#include <functional>

#include "kit/View.h"

namespace kit {

/// Height of the edge over which what is cut off fades, points.
inline constexpr double scrollFade = 12;

/// Shows as much of a view's height as there is room for. `position`, in points, is how far it is
/// scrolled down, held to what there is to scroll; `scrolled` is called with the position that the
/// user, or the focus, asks for.
View scroll(View content, double position, std::function<void(double position)> scrolled);

}  // namespace kit
