#pragma once

#include <string_view>

/// English weekday names. Weekdays are 1 = Sunday … 7 = Saturday; other numbers give empty text.
namespace noonward {

/// "Sunday" … "Saturday"
std::string_view weekdayName(int weekday);

/// "Sun" … "Sat"
std::string_view shortWeekdayName(int weekday);

}  // namespace noonward
