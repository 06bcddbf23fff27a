#pragma once

#include <string>

#include "config/Config.h"
#include "time/Instant.h"
#include "time/TimeZone.h"

/// Whether this computer is away from home, and what home and the place it is at are called.
/// `here` is the zone it is set to, `at` the real time: clocks may differ from home's on one side
/// of a clock change only.
namespace noonward {

/// The home place's zone; when it follows the computer, or is unknown, the first zone that counts
/// as home, else `here`.
TimeZone homeZone(const Config& config, const TimeZone& here);

/// The home place's label; empty without places.
std::string homeName(const Config& config);

/// The label of a place in that zone, else a city of the catalogue, else from its identifier.
std::string hereName(const Config& config, const TimeZone& here);

/// Whether the computer's zone is none that counts as home.
bool macElsewhere(const Config& config, const TimeZone& here);

/// Whether also its clock differs from home's.
bool away(const Config& config, const TimeZone& here, Instant at);

/// Whether the user, away, chose to plan from where the computer is. The choice holds for the zone
/// in which it was made.
bool planningHere(const Config& config, const TimeZone& here, Instant at);

/// Whether the user, away, has not been asked in this zone yet.
bool travelUndecided(const Config& config, const TimeZone& here, Instant at);

}  // namespace noonward
