#include "reference/Cities.h"

#include <utility>

#include "reference/CityIndex.h"
#include "reference/ZoneLabels.h"
#include "time/TimeZone.h"

namespace noonward::Cities {

std::vector<const City*> search(std::string_view query) {
    static const CityIndex index(curated(), zones());
    return index.search(query);
}

void lookUp(Geocoder& geocoder, const std::string& query,
            std::function<void(std::vector<City>)> done) {
    geocoder.lookUp(query, [query, done = std::move(done)](auto placemarks) {
        done(placemarks ? citiesOfPlacemarks(*placemarks, query) : std::vector<City>());
    });
}

std::vector<City> citiesOfPlacemarks(const std::vector<Placemark>& placemarks,
                                     const std::string& query) {
    std::vector<City> cities;
    for (const Placemark& place : placemarks) {
        if (!place.zone || !TimeZone::isKnown(*place.zone)) continue;
        const std::string name = place.locality ? *place.locality : place.name.value_or(query);
        cities.push_back({.name = name,
                          .country = place.country.value_or(""),
                          .zone = *place.zone,
                          .shortName = shortLabel(name),
                          .aliases = {}});
    }
    return cities;
}

}  // namespace noonward::Cities
