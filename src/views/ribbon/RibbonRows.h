#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

/// All rows one below the other, each a header and a strip of hours, or one thin line if hidden.
kit::View ribbonRows(const RibbonContext& context);

}  // namespace noonward
