#include "reference/Cities.h"

#include <algorithm>
#include <utility>

#include "base/Unicode.h"
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
                          .aliases = {},
                          .region = place.region.value_or("")});
    }
    return cities;
}

std::string fullName(const City& city) {
    std::string name = city.name;
    for (const std::string& part : {city.region, city.country}) {
        if (!part.empty() && part != city.name) name += ", " + part;
    }
    return name;
}

std::vector<std::string> rowNames(const std::vector<const City*>& shown) {
    std::vector<std::string> names;
    for (const City* city : shown) {
        const auto isNamesake = [&](const City* other) {
            return other != city && unicode::equalIgnoringCase(other->name, city->name);
        };
        const auto isNeighbour = [&](const City* other) {
            return isNamesake(other) && other->country == city->country;
        };
        std::string apart;
        if (std::any_of(shown.begin(), shown.end(), isNeighbour)) apart = city->region;
        if (apart.empty() && std::any_of(shown.begin(), shown.end(), isNamesake))
            apart = city->country;
        names.push_back(apart.empty() ? city->name : city->name + ", " + apart);
    }
    return names;
}

}  // namespace noonward::Cities
