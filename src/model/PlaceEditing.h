#pragma once

#include <optional>
#include <string>

#include "config/Config.h"
#include "model/Row.h"
#include "reference/City.h"
#include "time/TimeZone.h"

/// What the user can do to the places of a configuration. Places go by their index. Each edit gives
/// the edited configuration, not yet tidied; nothing when it is refused, as all are for an index
/// that no place has.
namespace noonward::editing {

using Edited = std::optional<Config>;

/// Whether a place for that city exists: its zone, and its name ignoring case.
bool has(const Config& config, const City& city);
bool isHome(const Config& config, int index);
bool isFavourite(const Config& config, int index);

/// With a place for a city at the end; refused when there are `most` already.
Edited add(Config config, const City& city, int most);

/// Home stays.
Edited remove(Config config, int index);

/// With two places swapped, neither of them home.
Edited move(Config config, int index, int by);

/// With a new label, which favourites follow.
Edited rename(Config config, int index, const std::string& name);

/// With another home; the old one becomes the favourite beside it.
Edited setHome(Config config, int index);

/// With a place as the one favourite beside home, or without it. Home is always one.
Edited toggleFavourite(Config config, int index);

/// Working hours with their start or end moved by so many hours, kept within 0 to 24. Hours that
/// would shrink to nothing stay as they are.
WorkHours nudged(const WorkHours& hours, bool start, double by);

/// With a place's working hours nudged.
Edited nudgeWork(Config config, int index, bool start, double by);

/// With one working weekday (1 = Sunday … 7 = Saturday) more or fewer than the place has. `here` is
/// the zone this computer is set to.
Edited toggleWorkday(Config config, int index, int weekday, const TimeZone& here);

/// With default hours, the country's week and its holidays; own days off stay.
Edited resetWeek(Config config, int index);

/// With the country's public holidays on or off.
Edited setHolidays(Config config, int index, bool on);

Edited addDayOff(Config config, int index, const std::string& key);
Edited removeDayOff(Config config, int index, const std::string& key);

}  // namespace noonward::editing
