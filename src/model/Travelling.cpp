#include "model/Travelling.h"

#include <algorithm>
#include <optional>

#include "reference/Catalogue.h"

namespace noonward {

TimeZone homeZone(const Config& config, const TimeZone& here) {
    if (const std::size_t home = config.homeIndex(); home < config.places.size())
        if (const auto zone = TimeZone::find(config.places[home].zone)) return *zone;
    if (!config.homeZones.empty())
        if (const auto zone = TimeZone::find(config.homeZones.front())) return *zone;
    return here;
}

std::string homeName(const Config& config) {
    const std::size_t home = config.homeIndex();
    return home < config.places.size() ? config.places[home].label : std::string();
}

std::string hereName(const Config& config, const TimeZone& here) {
    const std::string& zone = here.identifier();
    const auto place = std::find_if(config.places.begin(), config.places.end(),
                                    [&](const Place& known) { return known.zone == zone; });
    if (place != config.places.end()) return place->label;
    const std::string name = Cities::nameOfZone(zone);
    return name.empty() ? zone : name;
}

Whereabouts whereabouts(const Config& config, const TimeZone& here) {
    const TimeZone home = homeZone(config, here);
    const auto& known = config.homeZones;
    const bool knownHere = std::find(known.begin(), known.end(), here.identifier()) != known.end();
    return {.here = here, .home = home, .elsewhere = here != home && !knownHere};
}

bool planningHere(const std::optional<Travel>& travel, const Whereabouts& where, Instant at) {
    return travel && travel->here && travel->zone == where.here.identifier() && where.away(at);
}

bool travelUndecided(const std::optional<Travel>& travel, const Whereabouts& where, Instant at) {
    const bool answered = travel && travel->zone == where.here.identifier();
    return !answered && where.away(at);
}

}  // namespace noonward
