#pragma once

#include <optional>

#include "time/DayKey.h"
#include "time/Instant.h"
#include "time/TimeZone.h"

namespace noonward {

/// What a clock on the wall shows at an instant. Weekdays are 1 = Sunday … 7 = Saturday.
struct LocalTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 5;

    DayKey dayKey() const { return {year, month, day}; }
    bool operator==(const LocalTime&) const = default;
};

/// The Gregorian calendar in one zone.
///
/// Where a clock change leaves a local time with no instant, the first instant after the gap
/// stands for it (02:30 becomes 03:00); where it gives two, the first does. A day whose midnight
/// does not exist starts at its first existing instant; a day that a zone left out altogether
/// when it crossed the date line counts in day arithmetic, and starts when the next one does.
///
/// Instants before `TimeZone::earliest` or after `TimeZone::latest` are taken as those.
class Calendar {
 public:
    explicit Calendar(TimeZone zone) : zone_(zone) {}

    const TimeZone& zone() const { return zone_; }

    LocalTime local(Instant at) const;

    /// The time of day in hours, hour + minute / 60; seconds do not count.
    double hours(Instant at) const;

    DayKey dayKey(Instant at) const { return local(at).dayKey(); }

    /// The first instant of the local day that contains an instant.
    Instant startOfDay(Instant at) const;

    /// The first instant of the day that lies `days` calendar days after the local day of `at`;
    /// nothing beyond the years 1 to 9999.
    std::optional<Instant> startOfDay(Instant at, int days) const;

    /// `hour`:`minute`:00 on the calendar day `days` after the local day of `at`; nothing for an
    /// hour outside 0–23, a minute outside 0–59, or beyond the years 1 to 9999.
    std::optional<Instant> timeOfDay(Instant at, int days, int hour, int minute) const;

    /// The start of the clock hour that contains an instant, less than an hour before it: when
    /// the wall clock showed its full hour, or was last changed if that was later.
    Instant startOfHour(Instant at) const;

    /// Calendar days from the local day of `from` to that of `to`; negative when `to` is earlier.
    int daysBetween(Instant from, Instant to) const;

 private:
    TimeZone zone_;
};

}  // namespace noonward
