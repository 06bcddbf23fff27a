#pragma once

#include <string>
#include <vector>

namespace noonward {

/// A city that can become a place.
struct City {
    std::string name;       ///< "São Paulo"; becomes the place's label
    std::string country;    ///< "Brazil"; the zone's region ("America") for cities made from zones
    std::string zone;       ///< "America/Sao_Paulo"
    std::string shortName;  ///< "SAO"
    std::vector<std::string> aliases;
    std::string region;  ///< "Missouri"; empty but for cities that a geocoder has found

    /// Tells rows of a list apart.
    std::string id() const { return name + "|" + zone; }
    bool operator==(const City&) const = default;
};

}  // namespace noonward
