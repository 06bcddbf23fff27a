#pragma once

#include <array>

#include "model/Strip.h"
#include "time/Instant.h"

namespace noonward {

/// The meeting lengths on offer, in minutes.
inline constexpr std::array meetingLengths{15, 30, 45, 60};

/// The length, in minutes, that counts for a stored one: 60 for any that is not on offer.
int effectiveLength(int stored);

/// The length on offer after a given one, round again after the last.
int nextLength(int length);

/// Where a meeting of `length` minutes put at an instant really starts: on the nearest five-minute
/// mark of the strip (the later of two), not before its visible left edge, and early enough to end
/// with column 23.
Instant fitted(Instant at, const Strip& strip, int length);

}  // namespace noonward
