#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reference/Geocoder.h"

namespace noonward {

/// Finds the world's larger places by name. It searches two sorted tables where they lie, one of
/// names and one of areas: nothing is read in, built or kept.
class Gazetteer {
 public:
    static constexpr std::size_t most = 12;          ///< places that a search gives
    static constexpr std::size_t longestText = 256;  ///< bytes; a longer text finds nothing

    /// Tables as tools/gazetteer makes them, which must outlive this. Lines that are not of their
    /// form, and places of no known area, are passed over.
    Gazetteer(std::string_view places, std::string_view areas) : places_(places), areas_(areas) {}

    /// The one in the program: places of 5,000 people or more, capitals, seats of regions, and one
    /// of each time zone.
    static const Gazetteer& builtIn();

    /// At most `most` places whose names begin with a text (see `placeKey`), best first: larger
    /// places go first, but a name that equals the whole text counts for much more, and one of
    /// which only a later word begins so for much less. A text may end with the place's region,
    /// country or both ("Springfield, MO", "paris texas"). Each has all its fields but the region,
    /// which not all have, and is named as it was asked for: "Cologne" or "Köln".
    std::vector<Placemark> search(std::string_view typed) const;

    std::string_view places() const { return places_; }
    std::string_view areas() const { return areas_; }

 private:
    std::string_view places_;
    std::string_view areas_;
};

}  // namespace noonward
