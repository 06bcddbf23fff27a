#pragma once

#include <optional>

#include "holidays/DayOff.h"
#include "holidays/Holiday.h"
#include "model/Row.h"
#include "time/Instant.h"

namespace noonward {

/// The class of one hour cell of one row.
enum class Phase { work, awake, asleep, off };

/// Why a local day is off, without a copy of any name.
struct OffDay {
    DayOff::Kind kind;
    const Holiday* holiday = nullptr;  ///< set for `holiday` and `regional`; valid as its look-up's
    int weekday = 0;                   ///< set for `weekend`

    /// False only for a holiday in part of the country.
    bool off() const { return kind != DayOff::Kind::regional; }
};

/// Classifies a day of the row's calendar, given with its weekday: the place's own days off go
/// before public holidays, those before days that are not working days. Nothing for a common day.
std::optional<OffDay> offDay(const Row& row, DayKey day, int weekday,
                             const HolidayLookup& holidays);

/// The same for the local day of an instant, with its names.
std::optional<DayOff> dayOff(const Row& row, Instant at, const HolidayLookup& holidays);

/// Classifies the hour cell that starts at an instant; with `mid` by the middle of its hour.
/// Days off change working hours only: outside them a holiday is awake or asleep like any day.
Phase phase(const Row& row, Instant at, bool mid, const HolidayLookup& holidays);

}  // namespace noonward
