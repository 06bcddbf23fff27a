#pragma once

#include <vector>

#include "holidays/Holiday.h"
#include "model/Row.h"
#include "model/Strip.h"
#include "time/Instant.h"

namespace noonward {

/// The hours between a local time of day and the nearer end of the working hours; 0 inside them.
double hoursFromWork(const WorkHours& work, double hour);

/// The columns a meeting may start in: the whole strip, or in today's rolling strip the 24 full
/// hours to come, most of which lie beyond it.
Columns fairestCandidates(const Strip& strip, Instant now, int dayOffset);

/// The hour that asks least of the person who is worst off: the candidate with the smallest largest
/// score of a row, then the smallest sum of scores, then the earliest. A row scores its hours from
/// work, 4 more on a day off and 1 more on a holiday in part of its country.
/// At most 24 candidates; without rows the first one.
int fairestCol(const std::vector<Row>& rows, const Strip& strip, Columns candidates,
               const HolidayLookup& holidays);

}  // namespace noonward
