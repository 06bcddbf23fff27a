#include "model/Weekdays.h"

#include <array>
#include <cstddef>

namespace noonward {

namespace {

constexpr std::array<std::string_view, 7> names{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                "Thursday", "Friday", "Saturday"};

}  // namespace

std::string_view weekdayName(int weekday) {
    if (weekday < 1 || weekday > 7) return {};
    return names.at(static_cast<std::size_t>(weekday - 1));
}

std::string_view shortWeekdayName(int weekday) {
    return weekdayName(weekday).substr(0, 3);
}

}  // namespace noonward
