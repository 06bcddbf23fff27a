#include "time/Calendar.h"

#include <algorithm>
#include <cstdint>

namespace noonward {
namespace {

using std::chrono::days;
using std::chrono::floor;

// A wall clock's reading, as the instant at which a clock in UTC would show it.
using LocalSeconds = std::chrono::local_seconds;
using LocalDays = std::chrono::local_days;

constexpr LocalDays firstDay(
    std::chrono::sys_days(std::chrono::year(1) / 1 / 1).time_since_epoch());
constexpr LocalDays lastDay(
    std::chrono::sys_days(std::chrono::year(9999) / 12 / 31).time_since_epoch());

// No clock has been put forward or back by more than a day and a few hours.
constexpr hours longestChange(48);

Instant bounded(Instant at) {
    return std::clamp(at, TimeZone::earliest, TimeZone::latest);
}

LocalSeconds reading(const TimeZone& zone, Instant at) {
    const Instant inside = bounded(at);
    return LocalSeconds(floor<seconds>(inside).time_since_epoch() + zone.span(inside).offset);
}

cctz::civil_second civil(LocalSeconds local) {
    return cctz::civil_second() + local.time_since_epoch().count();
}

// The instant that stands for a reading: the first of two, or the end of the gap it lies in.
Instant firstInstant(const TimeZone& zone, LocalSeconds local) {
    const Instant guess(local.time_since_epoch());
    const TimeZone::Span span = zone.span(guess - zone.span(guess).offset);
    const Instant plain = guess - span.offset;
    if (plain - longestChange >= span.from && plain < span.until) return plain;

    const auto lookup = zone.handle().lookup(civil(local));
    const bool skipped = lookup.kind == cctz::time_zone::civil_lookup::SKIPPED;
    const auto found = skipped ? lookup.trans : lookup.pre;
    return Instant(seconds(found.time_since_epoch().count()));
}

// The calendar day that lies so many days later, if the calendar reaches that far.
std::optional<LocalDays> moved(LocalDays day, int count) {
    const std::int64_t target = std::int64_t{day.time_since_epoch().count()} + count;
    if (target < firstDay.time_since_epoch().count()) return std::nullopt;
    if (target > lastDay.time_since_epoch().count()) return std::nullopt;
    return LocalDays(days(static_cast<days::rep>(target)));
}

}  // namespace

LocalTime Calendar::local(Instant at) const {
    const LocalSeconds shown = reading(zone_, at);
    const LocalDays day = floor<days>(shown);
    const std::chrono::year_month_day date(day);
    const auto second = static_cast<int>((shown - day).count());
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = second / 3600,
            .minute = second / 60 % 60,
            .second = second % 60,
            .weekday = static_cast<int>(std::chrono::weekday(day).c_encoding()) + 1};
}

double Calendar::hours(Instant at) const {
    const LocalSeconds shown = reading(zone_, at);
    const auto minute = static_cast<int>((shown - floor<days>(shown)).count() / 60);
    const int hour = minute / 60;
    return hour + (minute % 60) / 60.0;
}

Instant Calendar::startOfDay(Instant at) const {
    return firstInstant(zone_, floor<days>(reading(zone_, at)));
}

std::optional<Instant> Calendar::startOfDay(Instant at, int days) const {
    return timeOfDay(at, days, 0, 0);
}

std::optional<Instant> Calendar::timeOfDay(Instant at, int days, int hour, int minute) const {
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return std::nullopt;
    const auto day = moved(floor<std::chrono::days>(reading(zone_, at)), days);
    if (!day) return std::nullopt;
    return firstInstant(zone_, *day + noonward::hours(hour) + minutes(minute));
}

Instant Calendar::startOfHour(Instant at) const {
    const Instant inside = bounded(at);
    const TimeZone::Span span = zone_.span(inside);
    const auto shown = inside.time_since_epoch() + span.offset;
    return std::max(span.from, inside - (shown - floor<noonward::hours>(shown)));
}

int Calendar::daysBetween(Instant from, Instant to) const {
    const auto first = floor<days>(reading(zone_, from));
    return static_cast<int>((floor<days>(reading(zone_, to)) - first).count());
}

}  // namespace noonward
