#pragma once

#include "kit/View.h"

namespace kit {

/// Where a symbol's drawing is: an SVG resource with a square view box that paints in
/// currentColor.
struct SymbolSource {
    const char* resource;
};

/// A symbol as large as the text around it, in its colour.
View symbol(SymbolSource source);

}  // namespace kit
