#include "model/PlaceIdentities.h"

#include <gtest/gtest.h>

namespace noonward {
namespace {

Place place(const char* label, const char* zone) {
    return {.label = label, .shortName = label, .zone = zone};
}

Place edited(Place place) {
    place.daysOff = {"2026-12-24"};
    return place;
}

TEST(PlaceIdentities, FollowThePlaces) {
    const Place delhi = place("Delhi", "Asia/Kolkata");
    const Place mumbai = place("Mumbai", "Asia/Kolkata");
    const Place london = place("London", "Europe/London");
    const Place paris = place("Paris", "Europe/Paris");
    Place home = paris;
    home.home = true;

    struct Case {
        const char* what;
        std::vector<Place> before;
        std::vector<Place> after;
        std::vector<PlaceIdentity> identities;  // those before are 1, 2, 3 …
    };
    for (const Case& each : {
             Case{"moved", {delhi, london, paris}, {delhi, paris, london}, {1, 3, 2}},
             Case{"made home", {delhi, london, paris}, {home, delhi, london}, {3, 1, 2}},
             Case{"removed", {delhi, london, paris}, {delhi, paris}, {1, 3}},
             Case{"added", {delhi, london}, {delhi, london, paris}, {1, 2, 3}},
             Case{"renamed", {delhi, london}, {place("", "Asia/Kolkata"), london}, {1, 2}},
             Case{"renamed to another's name",
                  {delhi, mumbai, london},
                  {mumbai, mumbai, london},
                  {1, 2, 3}},
             Case{"edited, with a namesake", {mumbai, mumbai}, {edited(mumbai), mumbai}, {1, 2}},
             Case{"moved and edited",
                  {london, delhi, mumbai},
                  {london, edited(mumbai), edited(delhi)},
                  {1, 3, 2}},
             Case{"namesakes moved", {edited(mumbai), mumbai}, {mumbai, edited(mumbai)}, {2, 1}},
             Case{"edited", {delhi, london}, {delhi, edited(london)}, {1, 2}},
             Case{"another in its zone", {delhi, london}, {london, mumbai}, {2, 1}},
             Case{"other places", {delhi, london}, {paris}, {3}},
             Case{"none left", {delhi}, {}, {}},
         }) {
        PlaceIdentities identities;
        identities.follow(each.before);
        EXPECT_EQ(identities.follow(each.after), each.identities) << each.what;
        EXPECT_EQ(identities.follow(each.after), each.identities) << each.what;
    }
}

TEST(PlaceIdentities, AreNeverGivenTwice) {
    PlaceIdentities identities;
    const Place delhi = place("Delhi", "Asia/Kolkata");
    EXPECT_EQ(identities.follow({delhi}), std::vector<PlaceIdentity>{1});
    identities.follow({});
    EXPECT_EQ(identities.follow({delhi}), std::vector<PlaceIdentity>{2});
}

}  // namespace
}  // namespace noonward
