#include "reference/CityIndex.h"

#include <algorithm>
#include <bit>
#include <map>

#include "base/Unicode.h"

namespace noonward {
namespace {

/// Places in a list, in order: a bit each.
class CitySet {
 public:
    /// Makes it empty, for a list of so many.
    void clear(std::size_t count) { words_.assign((count + 63) / 64, 0); }

    void insert(std::size_t place) { words_[place / 64] |= bit(place); }
    void erase(std::size_t place) { words_[place / 64] &= ~bit(place); }
    void remove(const CitySet& others) {
        for (std::size_t i = 0; i < words_.size(); ++i)
            words_[i] &= ~others.words_[i];
    }

    std::size_t size() const {
        std::size_t count = 0;
        for (const std::uint64_t word : words_)
            count += static_cast<std::size_t>(std::popcount(word));
        return count;
    }

    template <typename Use>
    void forEach(Use use) const {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            for (std::uint64_t rest = words_[i]; rest != 0; rest &= rest - 1) {
                use(i * 64 + static_cast<std::size_t>(std::countr_zero(rest)));
            }
        }
    }

 private:
    static std::uint64_t bit(std::size_t place) { return std::uint64_t{1} << (place % 64); }

    std::vector<std::uint64_t> words_;
};

}  // namespace

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

// For each group the cities found.
struct CityIndex::Found {
    std::array<CitySet, 4> sets;

    CitySet& operator[](Group group) { return sets[static_cast<std::size_t>(group)]; }
    const CitySet& operator[](Group group) const { return sets[static_cast<std::size_t>(group)]; }
};

std::vector<const City*> CityIndex::search(std::string_view query) const {
    const std::string text = unicode::folded(unicode::trimmed(query));
    if (text.empty()) return {};
    thread_local Found found;  // kept for the next search: only the result is allocated
    find(text, found);
    return listed(found);
}

void CityIndex::find(std::string_view text, Found& found) const {
    for (const Group group : curatedGroups)
        found[group].clear(curated_.size());
    found[Group::zone].clear(zones_.size());

    const auto isBefore = [](const Entry& entry, std::string_view q) { return entry.text < q; };
    auto entry = std::lower_bound(entries_.begin(), entries_.end(), text, isBefore);
    for (; entry != entries_.end() && entry->text.starts_with(text); ++entry) {
        found[entry->group].insert(entry->city);
    }
    found[Group::alias].remove(found[Group::name]);
    found[Group::country].remove(found[Group::name]);
    found[Group::country].remove(found[Group::alias]);
    for (const Group group : curatedGroups) {
        found[group].forEach([&](std::size_t city) {
            for (const std::uint32_t zone : namesakes_[city])
                found[Group::zone].erase(zone);
        });
    }
}

std::vector<const City*> CityIndex::listed(const Found& found) const {
    std::size_t count = 0;
    for (const CitySet& set : found.sets)
        count += set.size();
    std::vector<const City*> cities;
    cities.reserve(count);
    for (const Group group : curatedGroups) {
        found[group].forEach([&](std::size_t city) { cities.push_back(&curated_[city]); });
    }
    found[Group::zone].forEach([&](std::size_t city) { cities.push_back(&zones_[city]); });
    return cities;
}

}  // namespace noonward
