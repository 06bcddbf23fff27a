#pragma once

#include <QRectF>
#include <vector>

#include "kit/Placed.h"

namespace kit {

/// Where two trees of the same size paint something else, in points from the root's corner. The
/// rectangles may overlap; none when both look the same.
std::vector<QRectF> damage(const Placed& before, const Placed& after);

}  // namespace kit
