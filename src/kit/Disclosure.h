#pragma once

#include "kit/View.h"

namespace kit {

/// Shows a view whole, or nothing of it: shut, it takes no height, and nothing in it can be
/// reached. What is animated glides open from its top, and shut again.
View disclosure(View content, bool isOpen);

}  // namespace kit
