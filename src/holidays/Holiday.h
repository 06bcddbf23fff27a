#pragma once

#include <optional>
#include <string>

#include "time/DayKey.h"

namespace noonward {

/// A public holiday of one country on one day.
struct Holiday {
    std::string name;
    std::optional<std::string> regional = std::nullopt;  ///< the region; absent: the whole country

    bool operator==(const Holiday&) const = default;
};

/// Answers which holiday falls on a day.
class HolidayLookup {
 public:
    virtual ~HolidayLookup() = default;
    /// The holiday of a country (two-letter code) on a day, or null when the country has none that
    /// day or its calendar is not loaded. Valid until the calendars change.
    virtual const Holiday* holiday(const std::string& country, DayKey day) const = 0;
};

}  // namespace noonward
