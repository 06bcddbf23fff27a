#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "config/Config.h"
#include "model/Row.h"
#include "time/TimeZone.h"

/// The lists of rows that everything is computed and shown from. `here` is the zone this computer
/// is set to. They rely on a configuration with at least one place.
namespace noonward {

/// A row for each configured place, in their order. A place that follows the computer stays on the
/// home zone while the computer is elsewhere; one whose zone is unknown follows the computer.
std::vector<Row> placeRows(const Config& config, const TimeZone& here);

/// The rows as seen from where the computer is: that zone's row in front and home. Where no place
/// is in that zone, one is added.
std::vector<Row> rowsFromHere(std::vector<Row> rows, const Config& config, const TimeZone& here);

/// The rows with the UTC row after the home row.
std::vector<Row> withUtcRow(std::vector<Row> rows);

/// The rows whose lower-cased label is not in `hidden`.
std::vector<Row> visibleRows(const std::vector<Row>& rows, const std::set<std::string>& hidden);

/// The rows beside the notch: home, and the favourite or else the first other one.
std::vector<Row> notchRows(const std::vector<Row>& places, const Config& config);

/// The index of the first home row, or 0.
std::size_t homeRowIndex(const std::vector<Row>& rows);

}  // namespace noonward
