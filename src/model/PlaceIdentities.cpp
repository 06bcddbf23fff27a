#include "model/PlaceIdentities.h"

#include <cstddef>
#include <utility>

namespace noonward {
namespace {

// Another home is the same place.
bool isSame(const Place& before, const Place& now) {
    Place rehomed = before;
    rehomed.home = now.home;
    return rehomed == now;
}

bool isNamesake(const Place& before, const Place& now) {
    return before.label == now.label && before.zone == now.zone;
}

bool sharesZone(const Place& before, const Place& now) {
    return before.zone == now.zone;
}

bool isAny(const Place&, const Place&) {
    return true;
}

}  // namespace

const std::vector<PlaceIdentity>& PlaceIdentities::follow(const std::vector<Place>& places) {
    if (places == places_) return identities_;
    constexpr PlaceIdentity none = 0;
    std::vector<PlaceIdentity> known = std::exchange(identities_, {});
    identities_.resize(places.size(), none);

    using Test = bool (*)(const Place& before, const Place& now);
    const auto match = [&](std::size_t before, std::size_t now, Test test) {
        if (before >= known.size() || known[before] == none || identities_[now] != none) return;
        if (test(places_[before], places[now]))
            identities_[now] = std::exchange(known[before], none);
    };
    const auto matchInPlace = [&](Test test) {
        for (std::size_t i = 0; i < places.size(); ++i)
            match(i, i, test);
    };
    const auto matchAnywhere = [&](Test test) {
        for (std::size_t now = 0; now < places.size(); ++now) {
            for (std::size_t before = 0; before < known.size(); ++before)
                match(before, now, test);
        }
    };
    // From the surest sign to the faintest; a renamed place is the one that is left in its place.
    matchInPlace(isSame);
    matchAnywhere(isSame);
    matchInPlace(isNamesake);
    matchAnywhere(isNamesake);
    matchInPlace(sharesZone);
    matchAnywhere(sharesZone);
    if (places.size() == places_.size()) matchInPlace(isAny);

    for (PlaceIdentity& identity : identities_) {
        if (identity == none) identity = ++last_;
    }
    places_ = places;
    return identities_;
}

}  // namespace noonward
