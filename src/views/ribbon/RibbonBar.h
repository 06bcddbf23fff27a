#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

/// The controls bar: the fairest hour or the proposed meeting, or the time being typed; below it
/// the meeting's hours everywhere and which places are off.
kit::View bar(const RibbonContext& context);

}  // namespace noonward
