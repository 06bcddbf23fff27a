#pragma once

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "time/Calendar.h"

/// Instants and wall clocks as text, so that tables of them can be read.
namespace noonward::test {

/// The instant at which a clock in UTC shows "yyyy-mm-dd hh:mm" or "yyyy-mm-dd hh:mm:ss".
inline Instant utc(const char* text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (std::sscanf(text, "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second) < 5) {
        throw std::invalid_argument(text);
    }
    const auto date = std::chrono::year(year) / month / day;
    return std::chrono::sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

inline TimeZone zoneNamed(const char* identifier) {
    const auto zone = TimeZone::find(identifier);
    if (!zone) throw std::invalid_argument(identifier);
    return *zone;
}

/// What a clock shows, such as "Fri 2026-04-24 01:00:00".
inline std::string text(const LocalTime& local) {
    constexpr std::array days = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    std::array<char, 96> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%s %s %02d:%02d:%02d",
                  days.at(static_cast<std::size_t>(local.weekday - 1)),
                  local.dayKey().text().c_str(), local.hour, local.minute, local.second);
    return buffer.data();
}

/// What the clock on the wall shows in a zone at an instant.
inline std::string wall(const char* zone, Instant at) {
    return text(Calendar(zoneNamed(zone)).local(at));
}

}  // namespace noonward::test
