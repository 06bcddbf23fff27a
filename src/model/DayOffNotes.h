#pragma once

#include <string>
#include <vector>

#include "holidays/Holiday.h"
#include "model/Row.h"
#include "time/Instant.h"

namespace noonward {

/// Which rows are off on their local day of an instant, and why, one note for each reason:
/// "Saturday everywhere", "Good Friday in London, Sydney", "maybe Whit Monday in Berlin".
std::vector<std::string> dayOffNotes(const std::vector<Row>& rows, Instant at,
                                     const HolidayLookup& holidays);

}  // namespace noonward
