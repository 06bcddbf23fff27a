#pragma once

namespace kit {

class FirstClickHostingView;

/// Offers what hosting views show to screen readers. Call once, before the first of them is asked.
void installAccessibility();

/// Tells screen readers that a view shows something else; what is gone is forgotten.
void announceRebuilt(FirstClickHostingView& view);

}  // namespace kit
