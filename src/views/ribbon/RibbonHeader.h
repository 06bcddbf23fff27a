#pragma once

#include "views/ribbon/RibbonContext.h"

#include "kit/View.h"

namespace noonward {

/// The label column of a row: its local time, its name with why the day is off, and a line of
/// abbreviation, date and difference from home.
kit::View rowHeader(const RibbonContext& context, const Row& row);

}  // namespace noonward
