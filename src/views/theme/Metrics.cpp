#include "views/theme/Metrics.h"

#include <algorithm>
#include <cmath>

namespace noonward::Metrics {

static_assert(gridX == 342 && gridWidth == 766 && panelWidth == 1196);

double rowsHeight(const std::vector<bool>& hidden) {
    double height = 0;
    for (const bool isHidden : hidden)
        height += isHidden ? hiddenHeight : rowHeight;
    return hidden.empty() ? 0 : height + rowGap * static_cast<double>(hidden.size() - 1);
}

double x(double position) {
    const double clamped = std::clamp(position, 0.0, 24.0);
    const double column = std::min(std::floor(clamped), 23.0);
    const double fraction = clamped - column;
    return gridX + column * pitch + fraction * cell + (clamped == 24 ? gap : 0);
}

}  // namespace noonward::Metrics
