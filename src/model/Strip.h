#pragma once

#include "time/Calendar.h"
#include "time/Instant.h"

namespace noonward {

/// A closed range of column numbers.
struct Columns {
    int first = 0;
    int last = 23;

    bool contains(int column) const { return first <= column && column <= last; }
    bool operator==(const Columns&) const = default;
};

/// Which 24 hours the ribbon shows, and what part of the hour they are shifted by. Column c is the
/// hour from `dayStart` + c × 3600 s. Instants stay within the years 1 to 9999, whatever the
/// column.
struct Strip {
    Instant dayStart;
    bool rolling = false;
    microseconds elapsed{};  ///< of the current hour, less than an hour; 0 unless rolling

    /// The columns that have left on the left side, 0 ≤ scroll < 1.
    double scroll() const { return HoursFraction(elapsed).count(); }

    /// The columns that can be selected.
    Columns columns() const { return {elapsed > microseconds::zero() ? 1 : 0, 23}; }

    /// The start of a column; also of columns outside the strip.
    Instant instant(int column) const;

    /// The column that an instant lies in, or the nearer end of the strip.
    int col(Instant at) const;

    /// The column at a distance from the strip's left edge, `pitch` being one column's width.
    int column(double x, double pitch) const;

    /// An instant inside the shown day; in rolling mode the middle of the strip.
    Instant shownDay() const;
};

/// What a strip is laid out from.
struct StripPlace {
    Calendar home;
    Instant now;
    bool rolling = false;
    int dayOffset = 0;
};

/// The strip `dayOffset` days from today: from midnight at home, or in rolling mode from twelve
/// hours before the current hour. Days beyond the calendar show today.
Strip stripAt(const StripPlace& place);

/// The `dayOffset` of the strip of an instant's day; that of `place` does not count. The last hour
/// of a day of 25 lies behind its strip.
int dayOffsetShowing(const StripPlace& place, Instant at);

/// `at` moved by a length, kept within the years 1 to 9999.
Instant moved(Instant at, seconds by);

/// `at`, or the nearest instant within the years 1 to 9999.
Instant withinCalendar(Instant at);

}  // namespace noonward
