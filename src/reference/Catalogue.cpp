#include "reference/Catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Unicode.h"
#include "reference/ZoneLabels.h"
#include "time/TimeZone.h"

namespace noonward::Cities {
namespace {

constexpr std::string_view rows =
#include "reference/Catalogue.inc"
    ;

constexpr std::array<std::string_view, 7> groupsOfOlderNames = {
    "Etc", "SystemV", "US", "Canada", "Brazil", "Chile", "Mexico",
};

enum class Empty { keep, drop };

std::vector<std::string_view> split(std::string_view whole, char separator, Empty empty) {
    std::vector<std::string_view> pieces;
    for (std::size_t begin = 0; begin <= whole.size();) {
        const std::size_t end = std::min(whole.find(separator, begin), whole.size());
        if (end > begin || empty == Empty::keep) pieces.push_back(whole.substr(begin, end - begin));
        begin = end + 1;
    }
    return pieces;
}

/// "Buenos Aires" for the last of the pieces of "America/Argentina/Buenos_Aires"
std::string cityName(std::string_view piece) {
    std::string name(piece);
    std::replace(name.begin(), name.end(), '_', ' ');
    return name;
}

}  // namespace

const std::vector<City>& curated() {
    static const std::vector<City> cities = parseCatalogue(rows);
    return cities;
}

const std::vector<City>& zones() {
    static const std::vector<City> cities = citiesOfZones(TimeZone::listed());
    return cities;
}

std::string nameOfZone(std::string_view identifier) {
    const auto& cities = curated();
    const auto city = std::find_if(cities.begin(), cities.end(),
                                   [&](const City& known) { return known.zone == identifier; });
    if (city != cities.end()) return city->name;
    const auto pieces = split(identifier, '/', Empty::drop);
    return pieces.empty() ? std::string() : cityName(pieces.back());
}

std::string_view catalogueText() {
    return rows;
}

std::vector<City> parseCatalogue(std::string_view text) {
    std::vector<City> cities;
    for (const std::string_view line : split(text, '\n', Empty::drop)) {
        const auto fields = split(unicode::trimmed(line), '|', Empty::keep);
        if (fields.size() < 4 || !TimeZone::isKnown(fields[2])) continue;
        cities.push_back({.name = std::string(fields[0]),
                          .country = std::string(fields[1]),
                          .zone = std::string(fields[2]),
                          .shortName = std::string(fields[3]),
                          .aliases = {fields.begin() + 4, fields.end()}});
    }
    return cities;
}

std::vector<City> citiesOfZones(const std::vector<std::string>& identifiers) {
    std::vector<City> cities;
    for (const std::string& identifier : identifiers) {
        const auto pieces = split(identifier, '/', Empty::drop);
        if (pieces.size() < 2) continue;
        const auto& groups = groupsOfOlderNames;
        if (std::find(groups.begin(), groups.end(), pieces.front()) != groups.end()) continue;
        const std::string name = cityName(pieces.back());
        cities.push_back({.name = name,
                          .country = std::string(pieces.front()),
                          .zone = identifier,
                          .shortName = shortLabel(name),
                          .aliases = {}});
    }
    return cities;
}

}  // namespace noonward::Cities
