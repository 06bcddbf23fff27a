#pragma once

namespace kit {

/// Offers what hosting views show to screen readers. Each thing keeps its interface through every
/// rebuild, for as long as it is there. Call once, before the first view is shown.
void installAccessibility();

}  // namespace kit
