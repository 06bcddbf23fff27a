#include "reference/CityIndex.h"

#include <algorithm>
#include <map>

#include "base/Unicode.h"

namespace noonward {

CityIndex::CityIndex(const std::vector<City>& curated, const std::vector<City>& zones)
    : curated_(curated), zones_(zones) {
    for (std::size_t i = 0; i < curated.size(); ++i) {
        addWords(curated[i].name, Group::name, i);
        for (const std::string& alias : curated[i].aliases)
            addWords(alias, Group::alias, i);
        add(curated[i].country, Group::country, i);
    }
    for (std::size_t i = 0; i < zones.size(); ++i)
        addWords(zones[i].name, Group::zone, i);
    std::sort(entries_.begin(), entries_.end(),
              [](const Entry& a, const Entry& b) { return a.text < b.text; });
    relateNamesakes();
}

void CityIndex::add(const std::string& text, Group group, std::size_t city) {
    texts_.push_back(unicode::folded(text));
    entries_.push_back({texts_.back(), group, static_cast<std::uint32_t>(city)});
}

// The whole text stands for its first word too. A later word ends at a space, so that no query of
// several words begins there.
void CityIndex::addWords(const std::string& text, Group group, std::size_t city) {
    add(text, group, city);
    const std::string_view whole = texts_.back();
    for (std::size_t space = whole.find(' '); space != std::string_view::npos;) {
        const std::size_t begin = space + 1;
        space = whole.find(' ', begin);
        const std::string_view word = whole.substr(begin, space - begin);
        if (!word.empty()) entries_.push_back({word, group, static_cast<std::uint32_t>(city)});
    }
}

void CityIndex::relateNamesakes() {
    std::multimap<std::string, std::uint32_t> byName;
    for (std::size_t i = 0; i < zones_.size(); ++i) {
        byName.emplace(unicode::folded(zones_[i].name), static_cast<std::uint32_t>(i));
    }
    for (const City& city : curated_) {
        auto& same = namesakes_.emplace_back();
        const auto [first, last] = byName.equal_range(unicode::folded(city.name));
        for (auto zone = first; zone != last; ++zone)
            same.push_back(zone->second);
    }
}

std::vector<const City*> CityIndex::search(std::string_view query) const {
    const std::string text = unicode::folded(unicode::trimmed(query));
    if (text.empty()) return {};
    const auto first =
        std::lower_bound(entries_.begin(), entries_.end(), std::string_view(text),
                         [](const Entry& entry, std::string_view q) { return entry.text < q; });

    // The best group of each city of the two lists; kept to be used again.
    thread_local std::vector<Group> found;
    thread_local std::vector<bool> foundZones;
    found.assign(curated_.size(), Group::none);
    foundZones.assign(zones_.size(), false);
    for (auto entry = first; entry != entries_.end(); ++entry) {
        if (entry->text.substr(0, text.size()) != text) break;
        if (entry->group == Group::zone) {
            foundZones[entry->city] = true;
        } else if (found[entry->city] == Group::none || entry->group < found[entry->city]) {
            found[entry->city] = entry->group;
        }
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i] == Group::none) continue;
        for (const std::uint32_t zone : namesakes_[i])
            foundZones[zone] = false;
    }

    std::vector<const City*> cities;
    for (const Group group : {Group::name, Group::alias, Group::country}) {
        for (std::size_t i = 0; i < found.size(); ++i) {
            if (found[i] == group) cities.push_back(&curated_[i]);
        }
    }
    for (std::size_t i = 0; i < foundZones.size(); ++i) {
        if (foundZones[i]) cities.push_back(&zones_[i]);
    }
    return cities;
}

}  // namespace noonward
