#include "model/Proposal.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace noonward {

namespace {

using Marks = std::chrono::duration<std::int64_t, std::ratio<300>>;

}  // namespace

int effectiveLength(int stored) {
    const bool offered =
        std::find(meetingLengths.begin(), meetingLengths.end(), stored) != meetingLengths.end();
    return offered ? stored : meetingLengths.back();
}

int nextLength(int length) {
    const auto* const found = std::find(meetingLengths.begin(), meetingLengths.end(), length);
    const bool last = found == meetingLengths.end() || std::next(found) == meetingLengths.end();
    return last ? meetingLengths.front() : *std::next(found);
}

Instant fitted(Instant at, const Strip& strip, int length) {
    const auto first = std::chrono::ceil<Marks>(strip.elapsed);
    const auto last = std::chrono::floor<Marks>(hours(24) - minutes(length));
    const auto distance = withinCalendar(at) - strip.dayStart;
    // Halves before the strip would round the other way, but are raised to its edge anyway.
    const auto nearest = std::chrono::floor<Marks>(distance + seconds(150));
    return strip.dayStart + std::min(std::max(nearest, first), last);
}

}  // namespace noonward
