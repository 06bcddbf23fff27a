#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

/// A row's hour cells, two beyond each end of the 24 hours, fading out over the margins. Cells
/// stand on whole hours of the row's own clock.
kit::View strip(const RibbonContext& context, const Row& row);

}  // namespace noonward
