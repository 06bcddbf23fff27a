// The operations of Store that edit the configuration.

#include <utility>

#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "model/PlaceEditing.h"
#include "model/Store.h"

namespace noonward {

void Store::change(const std::function<void(Config&)>& body) {
    Config edited = config();
    body(edited);
    save(edited);
}

void Store::save(const Config& edited) {
    Config tidied = edited.tidied(services_.zone.current());
    services_.configFile.save(tidied);
    publish(std::move(tidied));
}

bool Store::saveIfAny(const std::optional<Config>& edited) {
    if (edited) save(*edited);
    return edited.has_value();
}

void Store::saveAndFetch(const std::optional<Config>& edited) {
    if (saveIfAny(edited)) fetchHolidays();
}

void Store::showWithoutSaving(const Config& config) {
    publish(config.tidied(services_.zone.current()));
}

void Store::reload() {
    publish(services_.configFile.load(services_.zone.current()));
    refreshNow();
    if (config().travel && !away()) change([](Config& edited) { edited.travel.reset(); });
    fetchHolidays();
}

void Store::add(const City& city) {
    saveIfAny(editing::add(config(), city, maxPlaces));
}
bool Store::has(const City& city) const {
    return editing::has(config(), city);
}
void Store::remove(int index) {
    saveIfAny(editing::remove(config(), index));
}
void Store::move(int index, int by) {
    saveIfAny(editing::move(config(), index, by));
}
void Store::rename(int index, const std::string& name) {
    saveIfAny(editing::rename(config(), index, name));
}
bool Store::isHome(int index) const {
    return editing::isHome(config(), index);
}
void Store::setHome(int index) {
    saveIfAny(editing::setHome(config(), index));
}
bool Store::isFavourite(int index) const {
    return editing::isFavourite(config(), index);
}
void Store::toggleFavourite(int index) {
    saveIfAny(editing::toggleFavourite(config(), index));
}

void Store::nudgeWork(int index, bool start, double by) {
    saveAndFetch(editing::nudgeWork(config(), index, start, by));
}
void Store::toggleWorkday(int index, int weekday) {
    saveAndFetch(editing::toggleWorkday(config(), index, weekday, services_.zone.current()));
}
void Store::resetWeek(int index) {
    saveAndFetch(editing::resetWeek(config(), index));
}
void Store::setHolidays(int index, bool on) {
    saveAndFetch(editing::setHolidays(config(), index, on));
}
void Store::addDayOff(int index, const std::string& key) {
    saveAndFetch(editing::addDayOff(config(), index, key));
}
void Store::removeDayOff(int index, const std::string& key) {
    saveAndFetch(editing::removeDayOff(config(), index, key));
}

void Store::setRolling(bool on) {
    change([on](Config& edited) { edited.rolling = on; });
    backToNow();
}

void Store::setAppearance(const std::string& name) {
    change([&name](Config& edited) { edited.appearance = name; });
}

void Store::markWelcomed() {
    change([](Config& edited) { edited.welcomed = true; });
}

void Store::planFromHere(bool here) {
    const std::string zone = services_.zone.current().identifier();
    change([&](Config& edited) { edited.travel = Travel{zone, here}; });
    backToNow();
    fetchHolidays();
}

void Store::fetchHolidays() {
    for (const Row& row : planRows())  // a copy: what is found at once may lead to other rows
        if (row.country) services_.holidays.ensure(*row.country);
}

}  // namespace noonward
