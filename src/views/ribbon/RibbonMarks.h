#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

// The marks over the strips, each placed from the grid's top-left corner; absent when there is
// nothing to mark.

/// The word over the fairest hour while nothing is proposed.
kit::View fairestCaption(const RibbonContext& context);

/// The ring around the fairest hour.
kit::View fairestOutline(const RibbonContext& context);

/// The ring around the hour under the pointer while nothing is proposed.
kit::View hoverOutline(const RibbonContext& context);

/// The line at the current time, on today's strip.
kit::View nowMark(const RibbonContext& context, double height);

/// The proposed meeting, with its time above; `height` is that of the rows.
kit::View proposalBlock(const RibbonContext& context, double height);

}  // namespace noonward
