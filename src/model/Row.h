#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "config/Place.h"
#include "time/Calendar.h"
#include "time/DayKey.h"
#include "time/Instant.h"
#include "time/TimeZone.h"

namespace noonward {

/// Working hours in hours of the local day, fractions allowed; an end that is not after the start
/// means hours that cross midnight. Any finite numbers: they come from the user's file as they are.
struct WorkHours {
    double start = 8;
    double end = 18;

    bool operator==(const WorkHours&) const = default;
};

/// A place's working hours: its own when they are two numbers, else 8 to 18.
WorkHours workHours(const Place& place);

/// One place as everything that is computed or shown sees it: a copyable value that carries all it
/// needs to know.
struct Row {
    static constexpr int utcID = 1000;   ///< the UTC row
    static constexpr int hereID = 2000;  ///< the row for where the computer is while travelling

    int id;  ///< the index of its place, or one of the above
    std::string label;
    std::string shortName;
    TimeZone tz;
    std::optional<std::string> abbrOverride;
    bool isHome;
    Calendar cal;  ///< in `tz`
    WorkHours work;
    std::set<int> workdays;  ///< 1 = Sunday … 7 = Saturday; other numbers match no day
    std::optional<std::string> country;  ///< whose public holidays apply; absent: none do
    std::set<DayKey> daysOff;            ///< the place's own

    /// The row of a configured place. Days off that are not day keys match no day and are left out.
    Row(int rowID, const Place& place, TimeZone zone, bool home);

    /// A row that no place stands behind: default hours, the country's week and holidays.
    Row(int rowID, std::string name, std::string shortText, TimeZone zone,
        std::optional<std::string> abbr, bool home);

    /// Whether a local time of day in hours lies inside the working hours.
    bool inHours(double hour) const { return inHours(work, hour); }
    static bool inHours(const WorkHours& work, double hour) {
        return work.start < work.end ? work.start <= hour && hour < work.end
                                     : hour >= work.start || hour < work.end;
    }

    /// The local time of day in hours; seconds do not count.
    double hours(Instant at) const { return cal.hours(at); }

    /// The offset from UTC in minutes, east positive, truncated toward zero.
    int offsetMinutes(Instant at) const;

    /// The zone's abbreviation for texts: the user's own, else the customary letters ("BST"), else
    /// the form "GMT+5:45".
    std::string abbr(Instant at) const;

    /// "8–18", "8:30–17:15"
    std::string hoursText() const;

    /// "Mon–Fri", "Mon Wed Fri", "every day", "no working days"
    std::string daysText() const;
};

}  // namespace noonward
