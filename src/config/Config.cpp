#include "config/Config.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "base/Unicode.h"
#include "reference/Catalogue.h"
#include "reference/ZoneLabels.h"

namespace noonward {
namespace {

constexpr std::size_t favouritesKept = 2;
constexpr std::size_t otherDefaultPlaces = 3;

std::vector<Place> defaultPlaces(const std::string& here) {
    const std::string name = Cities::nameOfZone(here);
    const std::string label = name.empty() ? "Home" : name;
    std::vector<Place> places{
        {.label = label, .shortName = shortLabel(label), .zone = "", .home = true}};
    const Place candidates[] = {
        {.label = "London", .shortName = "LON", .zone = "Europe/London"},
        {.label = "New York", .shortName = "NYC", .zone = "America/New_York"},
        {.label = "Singapore", .shortName = "SIN", .zone = "Asia/Singapore"},
        {.label = "Tokyo", .shortName = "TYO", .zone = "Asia/Tokyo"},
    };
    for (const Place& candidate : candidates) {
        if (candidate.zone == here || candidate.label == label) continue;
        if (places.size() > otherDefaultPlaces) break;
        places.push_back(candidate);
    }
    return places;
}

/// The home place's label, then the first other favourite that names a place, as it is written.
std::vector<std::string> tidiedFavourites(const std::vector<std::string>& favourites,
                                          const std::vector<Place>& places) {
    std::unordered_set<std::string> labels;
    for (const Place& place : places)
        labels.insert(unicode::caseFolded(place.label));
    const std::string& home = places.front().label;
    labels.erase(unicode::caseFolded(home));

    std::vector<std::string> kept{home};
    for (const std::string& favourite : favourites) {
        if (kept.size() == favouritesKept) break;
        if (labels.contains(unicode::caseFolded(favourite))) kept.push_back(favourite);
    }
    return kept;
}

}  // namespace

Config Config::defaults(const TimeZone& here) {
    Config config;
    config.homeZones = {here.identifier()};
    config.places = defaultPlaces(here.identifier());
    for (std::size_t i = 0; i < std::min(favouritesKept, config.places.size()); ++i)
        config.favourites.push_back(config.places[i].label);
    return config;
}

Config Config::tidied(const TimeZone& here) const {
    if (places.empty()) return defaults(here);
    Config config = *this;
    const auto home = config.places.begin() +
                      static_cast<std::vector<Place>::difference_type>(config.homeIndex());
    std::rotate(config.places.begin(), home, std::next(home));
    for (Place& place : config.places)
        place.home.reset();
    config.places.front().home = true;
    config.favourites = tidiedFavourites(favourites, config.places);
    return config;
}

std::size_t Config::homeIndex() const {
    const auto home = std::find_if(places.begin(), places.end(),
                                   [](const Place& place) { return place.home == true; });
    return home == places.end() ? 0 : static_cast<std::size_t>(std::distance(places.begin(), home));
}

bool Config::same(std::string_view a, std::string_view b) {
    return unicode::equalIgnoringCase(a, b);
}

}  // namespace noonward
