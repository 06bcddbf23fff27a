#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reference/City.h"

namespace noonward::Cities {

/// The built-in catalogue, in its order. Built on first use; lives as long as the process.
const std::vector<City>& curated();

/// A city for each zone of zone.tab that is named for one, by identifier: "America/New_York" gives
/// New York in "America". Built on first use; lives as long as the process.
const std::vector<City>& zones();

/// A name for where a zone is: the first city of the catalogue in it, else what its identifier ends
/// with ("Pacific/Chatham" gives "Chatham"); empty for an identifier of slashes only.
std::string nameOfZone(std::string_view identifier);

/// The text of the catalogue: a row a line, "name|country|zone|short|alias|alias...".
std::string_view catalogueText();

/// Reads a catalogue's text. Rows with fewer than four fields or an unknown zone are left out.
std::vector<City> parseCatalogue(std::string_view text);

/// The cities after which zones are named; identifiers without a region, and regions that only
/// group older names of zones ("US", "Etc" ...), give none.
std::vector<City> citiesOfZones(const std::vector<std::string>& identifiers);

}  // namespace noonward::Cities
