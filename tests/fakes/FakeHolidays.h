#pragma once

#include <map>
#include <string>
#include <utility>

#include "holidays/Holiday.h"

namespace noonward::test {

/// Holidays as a test lists them.
class FakeHolidays final : public HolidayLookup {
 public:
    using Days = std::map<std::pair<std::string, DayKey>, Holiday>;

    FakeHolidays() = default;
    explicit FakeHolidays(Days listed) : days(std::move(listed)) {}

    const Holiday* holiday(const std::string& country, DayKey day) const override {
        const auto found = days.find({country, day});
        return found == days.end() ? nullptr : &found->second;
    }

    Days days;
};

}  // namespace noonward::test
