#pragma once

#include <optional>
#include <string>
#include <vector>

namespace noonward {

/// One configured place, as it is stored. Field names are the keys in places.json, except
/// `shortName`, which is "short" there.
struct Place {
    std::string label;
    std::string shortName;
    std::string zone;  ///< IANA identifier; empty: the place follows this computer's zone
    std::optional<bool> home = std::nullopt;         ///< absent means false
    std::optional<std::string> abbr = std::nullopt;  ///< overrides the zone's abbreviation
    /// [start, end] in local hours, fractions allowed; any other number of entries means 8 to 18.
    std::optional<std::vector<double>> work = std::nullopt;
    /// 1 = Sunday … 7 = Saturday; absent means the country's week.
    std::optional<std::vector<int>> workdays = std::nullopt;
    std::optional<bool> holidays = std::nullopt;  ///< false switches public holidays off
    std::optional<std::vector<std::string>> daysOff = std::nullopt;  ///< day keys "yyyy-mm-dd"

    bool operator==(const Place&) const = default;
};

/// The user's answer to whether to plan from here or from home while travelling.
struct Travel {
    std::string zone;  ///< this computer's zone when the answer was given
    bool here = false;

    bool operator==(const Travel&) const = default;
};

}  // namespace noonward
