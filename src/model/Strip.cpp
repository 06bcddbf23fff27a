#include "model/Strip.h"

#include <algorithm>
#include <cmath>

namespace noonward {

namespace {

constexpr seconds halfStrip = hours(12);
constexpr seconds wholeStrip = hours(24);

}  // namespace

Instant withinCalendar(Instant at) {
    return std::clamp(at, TimeZone::earliest, TimeZone::latest);
}

Instant moved(Instant at, seconds by) {
    constexpr auto reach =
        std::chrono::duration_cast<seconds>(TimeZone::latest - TimeZone::earliest);
    return withinCalendar(withinCalendar(at) + std::clamp(by, -reach, reach));
}

Instant Strip::instant(int column) const {
    return moved(dayStart, seconds(3600) * column);
}

int Strip::col(Instant at) const {
    const auto column = std::chrono::floor<hours>(withinCalendar(at) - dayStart).count();
    return static_cast<int>(std::clamp<decltype(column)>(column, 0, 23));
}

int Strip::column(double x, double pitch) const {
    const auto [first, last] = columns();
    const double column = std::floor(x / pitch + scroll());
    if (!(column > first)) return first;
    return column < last ? static_cast<int>(column) : last;
}

Instant Strip::shownDay() const {
    return rolling ? dayStart + elapsed + halfStrip : dayStart;
}

Strip stripAt(const StripPlace& place) {
    const Calendar& home = place.home;
    if (!place.rolling) {
        const auto start = home.startOfDay(place.now, place.dayOffset);
        return {.dayStart = start ? *start : home.startOfDay(place.now)};
    }
    const Instant hour = home.startOfHour(place.now);
    return {.dayStart = moved(hour - halfStrip, wholeStrip * place.dayOffset),
            .rolling = true,
            .elapsed = place.now - hour};
}

int dayOffsetShowing(const StripPlace& place, Instant at) {
    at = withinCalendar(at);
    if (!place.rolling) return place.home.daysBetween(place.now, at);
    const auto distance = at - place.home.startOfHour(place.now);
    const auto half = distance < microseconds::zero() ? -halfStrip : halfStrip;
    return static_cast<int>((distance + half) / wholeStrip);  // halves away from zero
}

}  // namespace noonward
