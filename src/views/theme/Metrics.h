#pragma once

#include <vector>

/// The ribbon's geometry, in points.
namespace noonward::Metrics {

inline constexpr double pad = 28;        ///< outer horizontal padding of a panel
inline constexpr double header = 236;    ///< a row's label column
inline constexpr double headerGap = 18;  ///< between a row's header and its strip
inline constexpr double cell = 30;       ///< width of an hour cell
inline constexpr double gap = 2;         ///< between hour cells
inline constexpr double pitch = cell + gap;
inline constexpr double cellHeight = 44;
inline constexpr double rowHeight = 56;
inline constexpr double rowGap = 8;
inline constexpr double hiddenHeight = 26;  ///< a hidden row
inline constexpr double top = 40;           ///< above the first row, inside the grid
inline constexpr double bleed = 60;         ///< the faded margin on each side of the 24 hours
inline constexpr double gridX = pad + header + headerGap + bleed;  ///< left edge of hour 0
inline constexpr double gridWidth = 24 * cell + 23 * gap;
inline constexpr double panelWidth = gridX + gridWidth + bleed + pad;

/// Height of a stack of rows, one flag a row: true where it is hidden. No rows: 0.
double rowsHeight(const std::vector<bool>& hidden);

/// Where a fractional hour (0 to 24, clamped) lies in the panel. The fraction of an hour is spread
/// over the cell only, never over the gap.
double x(double position);

}  // namespace noonward::Metrics
