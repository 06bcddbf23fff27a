#pragma once

#include <optional>
#include <string>

#include "config/Config.h"
#include "time/Instant.h"
#include "time/TimeZone.h"

/// Whether this computer is away from home, and what home and the place it is at are called.
namespace noonward {

/// Where a computer is, by its zone.
struct Whereabouts {
    TimeZone here;           ///< the zone it is set to
    TimeZone home;           ///< the home place's
    bool elsewhere = false;  ///< `here` is no zone that counts as home

    /// Whether it is elsewhere and its clock differs from home's, at the real time: some zones
    /// differ on one side of a clock change only.
    bool away(Instant at) const { return elsewhere && here.offset(at) != home.offset(at); }
};

/// The home place's zone; when it follows the computer, or is unknown, the first zone that counts
/// as home, else `here`.
TimeZone homeZone(const Config& config, const TimeZone& here);

Whereabouts whereabouts(const Config& config, const TimeZone& here);

/// Whether the user, away, chose to plan from where the computer is. The choice holds for the zone
/// in which it was made.
bool planningHere(const std::optional<Travel>& travel, const Whereabouts& where, Instant at);

/// Whether the user, away, has not been asked in this zone yet.
bool travelUndecided(const std::optional<Travel>& travel, const Whereabouts& where, Instant at);

/// The home place's label; empty without places.
std::string homeName(const Config& config);

/// The label of a place in the zone `here`, else a city of the catalogue, else from its identifier.
std::string hereName(const Config& config, const TimeZone& here);

}  // namespace noonward
