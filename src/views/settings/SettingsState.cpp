#include "views/settings/SettingsState.h"

#include <algorithm>
#include <utility>

#include "base/Unicode.h"
#include "kit/Animation.h"
#include "platform/LoginItem.h"
#include "reference/Cities.h"

namespace noonward {
namespace {

constexpr std::size_t mostMatches = 7;
constexpr double theEnd = 1e6;  // further down than anything
const kit::Curve rearrangement = kit::spring(0.3, 0.8);

// The catalogue names no regions.
bool isSame(const City& a, const City& b) {
    return a.id() == b.id() && (a.region == b.region || a.region.empty() || b.region.empty());
}

QDate dayOf(const Row& row, Instant at) {
    const DayKey key = row.cal.dayKey(at);
    return {key.year(), key.month(), key.day()};
}

}  // namespace

SettingsState::SettingsState(Store& model, NotchUI& notchUI, const Services& used,
                             std::string typed, std::optional<int> editing)
    : store(model),
      ui(notchUI),
      services(used),
      query(changes_, std::move(typed)),
      newDayOff(changes_, dayOf(model.homeRow(), model.now())),
      remote(changes_),
      lookingUp(changes_, false),
      loginOn(changes_, used.loginItem && used.loginItem->enabled()),
      searchFocus(changes_, 0),
      // Why there is no field to look for a place in is said at the end.
      scrolled(changes_, isFull() ? theEnd : 0),
      editing_(changes_),
      shut_(changes_) {
    if (!editing || *editing < 0) return;
    const auto index = static_cast<std::size_t>(*editing);
    if (index < identities().size()) editing_ = identities()[index];
}

const std::vector<PlaceIdentity>& SettingsState::identities() const {
    return identities_.follow(store.config().places);
}

void SettingsState::toggleEditing(PlaceIdentity place) {
    const std::optional<PlaceIdentity> before = editing_();
    // What is to glide open is there before.
    if (before != place) shut_ = place;
    animate([&] {
        shut_ = before;
        editing_ = before == place ? std::nullopt : std::optional(place);
    });
}

void SettingsState::edit(PlaceIdentity place, const Edit& change) const {
    const auto& all = identities();
    const auto found = std::find(all.begin(), all.end(), place);
    if (found != all.end()) change(store, static_cast<int>(found - all.begin()));
}

void SettingsState::rearrange(PlaceIdentity place, const Edit& change) const {
    animate([&] { edit(place, change); });
}

void SettingsState::animate(const std::function<void()>& changes) const {
    services.animations.withAnimation(rearrangement, changes);
}

std::vector<City> SettingsState::matches() const {
    std::vector<City> found;
    const auto offer = [&](const City& city) {
        const auto same = [&](const City& other) { return isSame(other, city); };
        if (found.size() == mostMatches || store.has(city)) return;
        if (std::none_of(found.begin(), found.end(), same)) found.push_back(city);
    };
    for (const City* city : Cities::search(query()))
        offer(*city);
    for (const City& city : remote())
        offer(city);
    return found;
}

bool SettingsState::isFull() const {
    return store.config().places.size() >= static_cast<std::size_t>(Store::maxPlaces);
}

void SettingsState::add(const City& city) {
    animate([&] { store.add(city); });
    ++lookUps_;
    lookingUp = false;
    query = std::string();
    remote = std::vector<City>();
    if (isFull())
        scrolled = theEnd;  // to what is said instead of the search
    else
        searchFocus = searchFocus() + 1;
}

void SettingsState::lookUp() {
    if (!services.geocoder) return;
    const unsigned number = ++lookUps_;
    lookingUp = true;
    searchFocus = searchFocus() + 1;  // what is found comes right behind the field
    Cities::lookUp(*services.geocoder, query(),
                   [weak = weak_from_this(), number](std::vector<City> cities) {
                       const auto self = weak.lock();
                       if (!self || self->lookUps_ != number) return;
                       self->remote = std::move(cities);
                       self->lookingUp = false;
                   });
}

void SettingsState::setLogin(bool on) {
    if (!services.loginItem) return;
    services.loginItem->set(on);
    // What the desktop has made of it.
    loginOn = services.loginItem->enabled();
}

}  // namespace noonward
