#include "model/Travelling.h"

#include <algorithm>
#include <optional>

#include "reference/Catalogue.h"

namespace noonward {

namespace {

/// "Buenos Aires" for "America/Argentina/Buenos_Aires"
std::string lastPiece(const std::string& identifier) {
    std::string piece = identifier.substr(identifier.rfind('/') + 1);
    std::replace(piece.begin(), piece.end(), '_', ' ');
    return piece;
}

}  // namespace

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
    const auto isHere = [&](const auto& candidate) { return candidate.zone == zone; };
    const auto place = std::find_if(config.places.begin(), config.places.end(), isHere);
    if (place != config.places.end()) return place->label;
    const auto& cities = Cities::curated();
    const auto city = std::find_if(cities.begin(), cities.end(), isHere);
    if (city != cities.end()) return city->name;
    return lastPiece(zone);
}

Whereabouts whereabouts(const Config& config, const TimeZone& here) {
    const TimeZone home = homeZone(config, here);
    const auto& known = config.homeZones;
    const bool knownHere = std::find(known.begin(), known.end(), here.identifier()) != known.end();
    return {.here = here, .home = home, .elsewhere = !(here == home) && !knownHere};
}

bool planningHere(const std::optional<Travel>& travel, const Whereabouts& where, Instant at) {
    return travel && travel->here && travel->zone == where.here.identifier() && where.away(at);
}

bool travelUndecided(const std::optional<Travel>& travel, const Whereabouts& where, Instant at) {
    const bool answered = travel && travel->zone == where.here.identifier();
    return !answered && where.away(at);
}

}  // namespace noonward
