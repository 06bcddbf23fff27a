#include "model/Phase.h"

#include <algorithm>
#include <string>

#include "model/Strip.h"
#include "model/Weekdays.h"

namespace noonward {

namespace {

constexpr double wakingStart = 6;
constexpr double wakingEnd = 23;

Phase workingPhase(const std::optional<OffDay>& day) {
    if (!day) return Phase::work;
    switch (day->kind) {
        case DayOff::Kind::weekend:
            return Phase::awake;
        case DayOff::Kind::regional:
            return Phase::work;
        case DayOff::Kind::holiday:
        case DayOff::Kind::ownDay:
            break;
    }
    return Phase::off;
}

}  // namespace

std::optional<OffDay> offDay(const Row& row, DayKey day, int weekday,
                             const HolidayLookup& holidays) {
    if (row.daysOff.contains(day)) return OffDay{.kind = DayOff::Kind::ownDay};
    const bool workday = row.workdays.contains(weekday);
    if (row.country) {
        const Holiday* holiday = holidays.holiday(*row.country, day);
        if (holiday && !holiday->regional)
            return OffDay{.kind = DayOff::Kind::holiday, .holiday = holiday};
        if (holiday && workday) return OffDay{.kind = DayOff::Kind::regional, .holiday = holiday};
    }
    if (!workday) return OffDay{.kind = DayOff::Kind::weekend, .weekday = weekday};
    return std::nullopt;
}

std::optional<DayOff> dayOff(const Row& row, Instant at, const HolidayLookup& holidays) {
    const LocalTime local = row.cal.local(at);
    const auto day = offDay(row, local.dayKey(), local.weekday, holidays);
    if (!day) return std::nullopt;
    switch (day->kind) {
        case DayOff::Kind::weekend:
            return DayOff::weekend(std::string(weekdayName(day->weekday)));
        case DayOff::Kind::holiday:
            return DayOff::holiday(day->holiday->name);
        case DayOff::Kind::regional:
            return DayOff::regional(day->holiday->name, day->holiday->regional.value_or(""));
        case DayOff::Kind::ownDay:
            break;
    }
    return DayOff::ownDay();
}

Phase phase(const Row& row, Instant at, bool mid, const HolidayLookup& holidays) {
    const LocalTime local = row.cal.local(moved(at, mid ? seconds(1800) : seconds(0)));
    const double hour = local.hour + local.minute / 60.0;
    if (row.inHours(hour))
        return workingPhase(offDay(row, local.dayKey(), local.weekday, holidays));
    const double up = std::min(row.work.start, wakingStart);
    const double down = std::max(row.work.end, wakingEnd);
    return up <= hour && hour < down ? Phase::awake : Phase::asleep;
}

}  // namespace noonward
