#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "holidays/Holiday.h"
#include "time/DayKey.h"

namespace noonward {

/// One country's public holidays by day, in date order; one holiday a day.
class HolidayDays {
 public:
    using Entry = std::pair<DayKey, Holiday>;
    using const_iterator = std::vector<Entry>::const_iterator;

    HolidayDays() = default;
    /// Takes entries in any order; of several for one day the last counts.
    explicit HolidayDays(std::vector<Entry> entries);

    /// The holiday on a day, or null.
    const Holiday* find(DayKey day) const;

    /// The first entry on or after a day.
    const_iterator from(DayKey day) const;

    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }
    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }

    bool operator==(const HolidayDays&) const = default;

 private:
    std::vector<Entry> entries_;
};

}  // namespace noonward
