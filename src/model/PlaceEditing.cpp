#include "model/PlaceEditing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "model/Row.h"
#include "model/Rows.h"
#include "reference/Country.h"

namespace noonward::editing {

namespace {

constexpr double longestDay = 24;

bool exists(const Config& config, std::int64_t index) {
    return index >= 0 && index < static_cast<std::int64_t>(config.places.size());
}

const Place& placeAt(const Config& config, int index) {
    return config.places[static_cast<std::size_t>(index)];
}
Place& placeAt(Config& config, int index) {
    return config.places[static_cast<std::size_t>(index)];
}

bool isGuest(const Config& config, std::int64_t index) {
    return exists(config, index) && !isHome(config, static_cast<int>(index));
}

std::string homeLabel(const Config& config) {
    return config.places[config.homeIndex()].label;
}

// Nothing where the hours would shrink to nothing.
std::optional<WorkHours> moved(const WorkHours& hours, bool start, double by) {
    WorkHours result = hours;
    double& edge = start ? result.start : result.end;
    edge = std::min(std::max(0.0, edge + by), longestDay);
    if (result.start == result.end) return std::nullopt;
    return result;
}

}  // namespace

bool has(const Config& config, const City& city) {
    return std::any_of(config.places.begin(), config.places.end(), [&](const Place& place) {
        return place.zone == city.zone && Config::same(place.label, city.name);
    });
}

bool isHome(const Config& config, int index) {
    return exists(config, index) && placeAt(config, index).home.value_or(false);
}

bool isFavourite(const Config& config, int index) {
    if (!exists(config, index)) return false;
    const std::string& label = placeAt(config, index).label;
    return std::any_of(
        config.favourites.begin(), config.favourites.end(),
        [&](const std::string& favourite) { return Config::same(favourite, label); });
}

Edited add(Config config, const City& city, int most) {
    if (exists(config, most - 1)) return std::nullopt;
    config.places.push_back({.label = city.name, .shortName = city.shortName, .zone = city.zone});
    return config;
}

Edited remove(Config config, int index) {
    if (!isGuest(config, index)) return std::nullopt;
    config.places.erase(config.places.begin() + index);
    return config;
}

Edited move(Config config, int index, int by) {
    const std::int64_t other = std::int64_t{index} + by;
    if (!isGuest(config, index) || !isGuest(config, other)) return std::nullopt;
    std::swap(placeAt(config, index), placeAt(config, static_cast<int>(other)));
    return config;
}

Edited rename(Config config, int index, const std::string& name) {
    if (!exists(config, index)) return std::nullopt;
    const std::string old = std::exchange(placeAt(config, index).label, name);
    for (std::string& favourite : config.favourites)
        if (Config::same(favourite, old)) favourite = name;
    return config;
}

Edited setHome(Config config, int index) {
    if (!isGuest(config, index)) return std::nullopt;
    config.favourites = {placeAt(config, index).label, homeLabel(config)};
    for (Place& place : config.places)
        place.home.reset();
    placeAt(config, index).home = true;
    return config;
}

Edited toggleFavourite(Config config, int index) {
    if (!isGuest(config, index)) return std::nullopt;
    const std::string label = placeAt(config, index).label;
    auto& favourites = config.favourites;
    if (isFavourite(config, index)) {
        std::erase_if(favourites,
                      [&](const std::string& favourite) { return Config::same(favourite, label); });
    } else {
        favourites = {homeLabel(config), label};
    }
    return config;
}

WorkHours nudged(const WorkHours& hours, bool start, double by) {
    return moved(hours, start, by).value_or(hours);
}

Edited nudgeWork(Config config, int index, bool start, double by) {
    if (!exists(config, index)) return std::nullopt;
    Place& place = placeAt(config, index);
    const std::optional<WorkHours> work = moved(workHours(place), start, by);
    if (!work) return config;  // stored as it is, be that redundant or malformed
    if (*work == WorkHours()) {
        place.work.reset();
    } else {
        place.work = {work->start, work->end};
    }
    return config;
}

Edited toggleWorkday(Config config, int index, int weekday, const TimeZone& here) {
    if (!exists(config, index)) return std::nullopt;
    const Row row = placeRows(config, here)[static_cast<std::size_t>(index)];
    std::set<int> days = row.workdays;
    if (days.erase(weekday) == 0) days.insert(weekday);
    const auto& usual = Country::workingDays(Country::code(row.tz.identifier()));
    auto& stored = placeAt(config, index).workdays;
    if (days == std::set<int>(usual.begin(), usual.end())) {
        stored.reset();
    } else {
        stored.emplace(days.begin(), days.end());
    }
    return config;
}

Edited resetWeek(Config config, int index) {
    if (!exists(config, index)) return std::nullopt;
    Place& place = placeAt(config, index);
    place.work.reset();
    place.workdays.reset();
    place.holidays.reset();
    return config;
}

Edited setHolidays(Config config, int index, bool on) {
    if (!exists(config, index)) return std::nullopt;
    auto& holidays = placeAt(config, index).holidays;
    if (on) {
        holidays.reset();
    } else {
        holidays = false;
    }
    return config;
}

Edited addDayOff(Config config, int index, const std::string& key) {
    if (!exists(config, index)) return std::nullopt;
    auto& stored = placeAt(config, index).daysOff;
    std::set<std::string> keys{key};
    if (stored) keys.insert(stored->begin(), stored->end());
    stored.emplace(keys.begin(), keys.end());
    return config;
}

Edited removeDayOff(Config config, int index, const std::string& key) {
    if (!exists(config, index)) return std::nullopt;
    auto& stored = placeAt(config, index).daysOff;
    if (stored) std::erase(*stored, key);
    if (stored && stored->empty()) stored.reset();
    return config;
}

}  // namespace noonward::editing
