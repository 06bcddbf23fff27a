#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "time/Instant.h"
#include "time/TimeZone.h"

namespace noonward {

/// What a typed time is read against.
struct TimeContext {
    struct Row {
        std::string label;
        std::string shortName;
        TimeZone zone;
    };

    Instant now;
    Instant dayStart;       ///< where the shown day begins
    int dayOffset = 0;      ///< the shown day relative to today
    bool rolling = false;   ///< the strip keeps now in its middle
    TimeZone homeZone;      ///< where a time without a place is meant
    std::vector<Row> rows;  ///< the configured places, in their order
};

/// Reads phrases such as "7:30am NY tue", "6:15 India" and "18:00".
namespace TimeParser {

/// The instant a phrase means, or nothing when it is not understood. Text of more than 256
/// characters is not.
std::optional<Instant> parse(std::string_view text, const TimeContext& context);

/// The zone that a place phrase in lower case names ("in new york time"): by a row's short label or
/// the beginning of its label, a usual abbreviation, a city's short code, or the city search. The
/// home zone for an empty phrase.
std::optional<TimeZone> zone(std::string_view phrase, const TimeContext& context);

}  // namespace TimeParser

}  // namespace noonward
