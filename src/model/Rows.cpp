#include "model/Rows.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "base/Unicode.h"
#include "model/Travelling.h"
#include "reference/ZoneLabels.h"

namespace noonward {

namespace {

TimeZone zoneOf(const Place& place, const Whereabouts& where) {
    if (place.zone.empty()) return where.elsewhere ? where.home : where.here;
    return TimeZone::find(place.zone).value_or(where.here);
}

}  // namespace

std::vector<Row> placeRows(const Config& config, const TimeZone& here) {
    const Whereabouts where = whereabouts(config, here);
    std::vector<Row> rows;
    rows.reserve(config.places.size());
    for (const Place& place : config.places)
        rows.emplace_back(static_cast<int>(rows.size()), place, zoneOf(place, where),
                          place.home.value_or(false));
    return rows;
}

std::vector<Row> rowsFromHere(std::vector<Row> rows, const Config& config, const TimeZone& here) {
    for (Row& row : rows)
        row.isHome = false;
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.tz == here; });
    if (found != rows.end()) {
        found->isHome = true;
        std::rotate(rows.begin(), found, std::next(found));
    } else {
        const std::string name = hereName(config, here);
        rows.insert(rows.begin(),
                    Row(Row::hereID, name, shortLabel(name), here, std::nullopt, true));
    }
    return rows;
}

std::vector<Row> withUtcRow(std::vector<Row> rows) {
    const auto home = std::find_if(rows.begin(), rows.end(), [](const Row& r) { return r.isHome; });
    rows.insert(home == rows.end() ? rows.begin() : std::next(home),
                Row(Row::utcID, "UTC", "UTC", TimeZone::utc(), "", false));
    return rows;
}

std::vector<Row> visibleRows(const std::vector<Row>& rows, const std::set<std::string>& hidden) {
    std::vector<Row> visible;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(visible), [&](const Row& row) {
        return hidden.empty() || !hidden.contains(unicode::lowercased(row.label));
    });
    return visible;
}

std::vector<Row> notchRows(const std::vector<Row>& places, const Config& config) {
    std::vector<Row> beside;
    if (places.empty()) return beside;
    const Row& home = places[homeRowIndex(places)];
    beside.push_back(home);
    const auto favourite =
        std::find_if(config.favourites.begin(), config.favourites.end(),
                     [&](const std::string& label) { return !Config::same(label, home.label); });
    auto second = places.end();
    if (favourite != config.favourites.end())
        second = std::find_if(places.begin(), places.end(),
                              [&](const Row& row) { return Config::same(row.label, *favourite); });
    if (second == places.end())
        second = std::find_if(places.begin(), places.end(),
                              [&](const Row& row) { return row.id != home.id; });
    if (second != places.end()) beside.push_back(*second);
    return beside;
}

std::size_t homeRowIndex(const std::vector<Row>& rows) {
    const auto home = std::find_if(rows.begin(), rows.end(), [](const Row& r) { return r.isHome; });
    return home == rows.end() ? 0 : static_cast<std::size_t>(home - rows.begin());
}

}  // namespace noonward
