#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "reference/Catalogue.h"
#include "reference/City.h"
#include "reference/Geocoder.h"

namespace noonward::Cities {

/// The cities of the catalogue and of the zones that match a text, best first (see CityIndex).
/// They live as long as the process.
std::vector<const City*> search(std::string_view query);

/// Asks the geocoder for a text as it was typed. `done` is given no cities when it fails.
void lookUp(Geocoder& geocoder, const std::string& query,
            std::function<void(std::vector<City>)> done);

/// The cities of a geocoder's answer, in its order; places without a known zone are left out. One
/// without a locality or name is called what was typed.
std::vector<City> citiesOfPlacemarks(const std::vector<Placemark>& placemarks,
                                     const std::string& query);

/// A city with its region and country, for reading out: "Springfield, Missouri, United States".
std::string fullName(const City& city);

/// What each row of a list is called: the city's name, and where others of the list have the same
/// one, what tells them apart: its region for those of one country, else its country.
std::vector<std::string> rowNames(const std::vector<const City*>& shown);

}  // namespace noonward::Cities
