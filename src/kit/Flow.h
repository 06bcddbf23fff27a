#pragma once

#include "kit/View.h"

namespace kit {

/// Children side by side in their ideal sizes, on as many lines as the offered width asks for.
/// `spacing`, in points, is between them and between the lines.
View flow(double spacing, const Views& children);

}  // namespace kit
