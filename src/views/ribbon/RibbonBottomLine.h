#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

/// The line below the bar: a passing message, the travel banner or the hints, and at its end the
/// update notice and the way to the settings.
kit::View bottomLine(const RibbonContext& context);

}  // namespace noonward
