#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "support/Instants.h"
#include "support/LibraryZone.h"
#include "time/Calendar.h"

// Proof of the calendar against another reader of the same zone data: the C library's localtime_r,
// in every zone people live in and around every clock change from 1990 to 2036.

namespace noonward {
namespace {

using Seconds = std::int64_t;
constexpr Seconds day = 86400;

std::tm libraryTime(Seconds at) {
    const std::time_t when = at;
    std::tm fields{};
    localtime_r(&when, &fields);
    return fields;
}

Seconds libraryOffset(Seconds at) {
    return libraryTime(at).tm_gmtoff;
}

Seconds floorTo(Seconds value, Seconds unit) {
    return value - ((value % unit) + unit) % unit;
}

Instant instant(Seconds at) {
    return Instant(seconds(at));
}

/// An offset and the second from which it is in force.
struct Change {
    Seconds at;
    Seconds offset;
};
using Changes = std::vector<Change>;

/// The first second at which the offset is no longer what it was at `before`.
Seconds changeBetween(Seconds before, Seconds after) {
    const Seconds offset = libraryOffset(before);
    while (after - before > 1) {
        const Seconds middle = before + (after - before) / 2;
        (libraryOffset(middle) == offset ? before : after) = middle;
    }
    return after;
}

/// The offset at `from`, and all its changes until `until`.
Changes changes(Seconds from, Seconds until) {
    Changes found = {{from, libraryOffset(from)}};
    constexpr Seconds step = 3 * day;  // no two changes since 1990 were nearer
    for (Seconds at = from; at < until; at += step) {
        if (libraryOffset(at + step) == found.back().offset) continue;
        const Seconds change = changeBetween(at, at + step);
        found.push_back({change, libraryOffset(change)});
    }
    return found;
}

/// The last change at or before an instant.
Changes::const_iterator inForce(const Changes& changes, Seconds at) {
    const auto later = [](Seconds value, const Change& change) { return value < change.at; };
    return std::upper_bound(changes.begin(), changes.end(), at, later) - 1;
}

/// The first instant from `from` on at which the clock shows the reading or has jumped past it;
/// before `from` it has not been shown.
Seconds firstShowing(Seconds reading, Seconds from, const Changes& changes) {
    for (auto span = inForce(changes, from);; ++span) {
        const Seconds showing = reading - span->offset;
        const auto next = span + 1;
        if (next == changes.end() || showing < next->at) return std::max(showing, span->at);
    }
}

LocalTime fields(const std::tm& t) {
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday,    t.tm_hour,
            t.tm_min,         t.tm_sec,     t.tm_wday + 1};
}

/// What the calendar says otherwise than the C library about an instant; empty when nothing.
std::string disagreement(const Calendar& calendar, Seconds at, const Changes& changes) {
    const std::tm shown = libraryTime(at);
    if (calendar.local(instant(at)) != fields(shown)) return "local time";

    const Seconds local = at + shown.tm_gmtoff;
    const Seconds today = floorTo(local, day);
    const Seconds before = at - 3 * day;
    if (calendar.startOfDay(instant(at)) != instant(firstShowing(today, before, changes))) {
        return "start of day";
    }
    const Seconds fullHour = at - (local - floorTo(local, 3600));
    const Seconds hour = std::max(fullHour, inForce(changes, at)->at);
    if (calendar.startOfHour(instant(at)) != instant(hour)) return "start of hour";

    constexpr std::array times = {0, 30, 90, 150, 23 * 60 + 15};
    const int reach = inForce(changes, at)->at == at ? 1 : 0;
    for (int days = -reach; days <= reach; ++days) {
        for (const int minute : times) {
            const Seconds reading = today + days * day + minute * 60;
            const auto set = calendar.timeOfDay(instant(at), days, minute / 60, minute % 60);
            if (set != instant(firstShowing(reading, before, changes))) {
                return std::to_string(minute) + " minutes on day " + std::to_string(days);
            }
        }
    }
    return {};
}

TEST(CalendarAgainstLibrary, AgreesAroundEveryClockChange) {
    const auto secondsOf = [](const char* text) {
        return std::chrono::duration_cast<seconds>(test::utc(text).time_since_epoch()).count();
    };
    const Seconds from = secondsOf("1990-01-01 00:00");
    const Seconds until = secondsOf("2036-08-01 00:00");
    std::size_t changesSeen = 0;
    for (const std::string& identifier : TimeZone::listed()) {
        const test::LibraryZone library(identifier);
        const Calendar calendar(test::zoneNamed(identifier.c_str()));
        const Changes around = changes(from - 30 * day, until + 30 * day);
        for (const Change& change : around) {
            if (change.at < from || change.at >= until) continue;
            ++changesSeen;
            for (const Seconds at : {change.at - 1, change.at, change.at + 1}) {
                const std::string what = disagreement(calendar, at, around);
                ASSERT_EQ(what, "") << identifier << " at " << test::text(fields(libraryTime(at)));
            }
        }
    }
    EXPECT_GT(changesSeen, 10'000U);
}

}  // namespace
}  // namespace noonward
