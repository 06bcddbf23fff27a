#include "model/Row.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "model/Weekdays.h"
#include "reference/Country.h"
#include "reference/ZoneLabels.h"

namespace noonward {

namespace {

constexpr std::array mondayFirst{2, 3, 4, 5, 6, 7, 1};

/// "8", "8:30"; any finite number.
std::string hourOfDay(double hour) {
    const double whole = std::trunc(hour);
    std::array<char, 400> text{};  // the largest double has 309 digits before the point
    std::snprintf(text.data(), text.size(), "%.0f", whole + 0.0);
    if (whole == hour) return text.data();
    std::array<char, 8> rest{};
    std::snprintf(rest.data(), rest.size(), ":%02.0f", std::round(std::abs(hour - whole) * 60));
    return (hour < 0 && whole == 0 ? "-" : "") + std::string(text.data()) + rest.data();
}

/// The run of `length` days from position `start` of the week on, wrapping.
std::set<int> runOfDays(std::size_t start, std::size_t length) {
    std::set<int> days;
    for (std::size_t i = 0; i < length; ++i)
        days.insert(mondayFirst.at((start + i) % 7));
    return days;
}

}  // namespace

WorkHours workHours(const Place& place) {
    if (!place.work || place.work->size() != 2) return {};
    return {place.work->front(), place.work->back()};
}

Row::Row(int rowID, std::string name, std::string shortText, TimeZone zone,
         std::optional<std::string> abbr, bool home)
    : id(rowID),
      label(std::move(name)),
      shortName(std::move(shortText)),
      tz(zone),
      abbrOverride(std::move(abbr)),
      isHome(home),
      cal(zone),
      country(Country::code(zone.identifier())) {
    const auto days = Country::workingDays(country);
    workdays.insert(days.begin(), days.end());
}

Row::Row(int rowID, const Place& place, TimeZone zone, bool home)
    : Row(rowID, place.label, place.shortName, zone, place.abbr, home) {
    work = workHours(place);
    if (place.workdays) workdays = {place.workdays->begin(), place.workdays->end()};
    if (!place.holidays.value_or(true)) country.reset();
    if (!place.daysOff) return;
    for (const std::string& text : *place.daysOff)
        if (const auto day = DayKey::parse(text)) daysOff.insert(*day);
}

int Row::offsetMinutes(Instant at) const {
    return static_cast<int>(std::chrono::duration_cast<minutes>(tz.offset(at)).count());
}

std::string Row::abbr(Instant at) const {
    if (abbrOverride && !abbrOverride->empty()) return *abbrOverride;
    if (auto letters = tzAbbreviation(tz, at)) return *letters;
    return offsetAbbreviation(tz.offset(at));
}

std::string Row::hoursText() const {
    return hourOfDay(work.start) + "–" + hourOfDay(work.end);
}

std::string Row::daysText() const {
    std::set<int> days;
    std::string names;
    for (const int day : mondayFirst) {
        if (!workdays.contains(day)) continue;
        days.insert(day);
        names += (names.empty() ? "" : " ") + std::string(shortWeekdayName(day));
    }
    if (days.empty()) return "no working days";
    if (days.size() == mondayFirst.size()) return "every day";
    if (days.size() == 1) return names;
    for (std::size_t start = 0; start < mondayFirst.size(); ++start) {
        if (runOfDays(start, days.size()) != days) continue;
        const std::size_t end = (start + days.size() - 1) % mondayFirst.size();
        return std::string(shortWeekdayName(mondayFirst.at(start))) + "–" +
               std::string(shortWeekdayName(mondayFirst.at(end)));
    }
    return names;
}

}  // namespace noonward
