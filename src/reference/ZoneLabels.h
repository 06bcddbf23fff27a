#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "time/Instant.h"
#include "time/TimeZone.h"

namespace noonward {

/// A short upper-case code for a name: the initials of up to three capitalised words ("Rio de
/// Janeiro" gives "RJ"), or the first three characters where there are not two such words.
std::string shortLabel(std::string_view name);

/// The letters by which a zone goes at an instant, such as "BST"; nothing where the zone database
/// has only a bare offset. "GMT" and "UTC" are "UTC".
std::optional<std::string> tzAbbreviation(const TimeZone& zone, Instant at);

/// An offset from UTC as "GMT+4", "GMT-3:30", "GMT+5:45" or "GMT"; seconds do not show.
std::string offsetAbbreviation(seconds offset);

}  // namespace noonward
