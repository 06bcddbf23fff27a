#pragma once

#include "kit/View.h"

namespace kit {

struct RowSpec {
    Vertical align = Vertical::centre;
    double spacing = 0;
};

struct ColumnSpec {
    Horizontal align = Horizontal::centre;
    double spacing = 0;
};

/// Children side by side. Where room is short the higher priority is served first, and among
/// equals the least flexible; spacers share what is left.
View hstack(RowSpec options, const Views& children);

/// Children one below the other, served as in `hstack`.
View vstack(ColumnSpec options, const Views& children);

/// Children over each other, the last in front.
View zstack(Alignment alignment, const Views& children);

/// Flexible space along the stack it stands in.
View spacer(double minimum = 0);

}  // namespace kit
