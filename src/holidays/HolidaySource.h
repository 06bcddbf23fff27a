#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "holidays/HttpClient.h"

namespace noonward {

/// The public calendar service that has a holiday calendar for each country.
struct HolidaySource {
    std::string origin = "https://calendar.google.com";
    std::string groupDomain = "group.v.calendar.google.com";

    /// The addresses at which a country's calendar may lie, to be tried in this order; none for
    /// anything but a country code.
    std::vector<std::string> addresses(std::string_view country) const;

    /// The calendar's text, if a response holds one: status 200, UTF-8, and iCalendar.
    static std::optional<std::string> calendar(HttpResponse response);
};

}  // namespace noonward
