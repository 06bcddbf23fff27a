#pragma once

#include <string_view>

#include "holidays/HolidayDays.h"

namespace noonward {

/// The public holidays in iCalendar text (RFC 5545), as the public calendar service writes it.
///
/// Events count whose description's first line begins with "Public holiday"; one that begins with
/// "Public holiday in " names the regions that have the day off. An event lasts from DTSTART up to
/// but without DTEND, at least one day and at most 14. Of several on one day a national holiday
/// goes before regional ones; equals share the day, "A · B". Never fails: what cannot be read is
/// left out. Lines folded with a tab (RFC 5545 §3.1 allows it) are not joined.
HolidayDays readCalendar(std::string_view text);

}  // namespace noonward
