#pragma once

#include <cstdint>
#include <vector>

#include "config/Place.h"

namespace noonward {

using PlaceIdentity = std::uint64_t;

/// Tells which place is which while places are renamed, edited, moved, added and removed. Files
/// know places by their index alone; whoever shows a list of them needs more.
class PlaceIdentities {
 public:
    /// Identities for places as they are now, in their order. A place that was there at the last
    /// call keeps the one it had; none is given twice.
    const std::vector<PlaceIdentity>& follow(const std::vector<Place>& places);

 private:
    std::vector<Place> places_;
    std::vector<PlaceIdentity> identities_;
    PlaceIdentity last_ = 0;
};

}  // namespace noonward
