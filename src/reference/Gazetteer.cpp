#include "reference/Gazetteer.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/Unicode.h"
#include "reference/Country.h"
#include "reference/GazetteerLine.h"
#include "reference/PlaceKey.h"

// Between each two of these lies a table; see GazetteerTable.S.
extern "C" const char noonwardPlaces[];
extern "C" const char noonwardPlacesEnd[];
extern "C" const char noonwardAreas[];
extern "C" const char noonwardAreasEnd[];

namespace noonward {
namespace {

using How = GazetteerLine::How;

// How much more a place counts for each step that its name is nearer to what was typed.
constexpr std::uint64_t nearness = 16;
constexpr std::size_t leastBeginning = 3;  // letters that a region or country is known by

constexpr std::array<std::pair<std::string_view, std::string_view>, 12> otherCountryNames = {{
    {"america", "US"},
    {"britain", "GB"},
    {"burma", "MM"},
    {"czech republic", "CZ"},
    {"great britain", "GB"},
    {"holland", "NL"},
    {"ivory coast", "CI"},
    {"korea", "KR"},
    {"turkey", "TR"},
    {"uae", "AE"},
    {"uk", "GB"},
    {"usa", "US"},
}};

bool isCode(std::string_view key, std::string_view code) {
    return !code.empty() && key == unicode::lowercased(code);
}

/// What was typed after a place's name: its region, its country, or both.
class Qualifier {
 public:
    explicit Qualifier(std::string key) : key_(std::move(key)) {}

    bool matches(const GazetteerArea& area) {
        if (key_.empty() || isRegion(key_, area) || isCountry(key_, area)) return true;
        for (std::size_t space = key_.find(' '); space != std::string::npos;
             space = key_.find(' ', space + 1)) {
            const std::string_view key = key_;
            if (isRegion(key.substr(0, space), area) && isCountry(key.substr(space + 1), area))
                return true;
        }
        return false;
    }

 private:
    static bool isRegion(std::string_view key, const GazetteerArea& area) {
        if (isCode(key, area.regionShort)) return true;
        return key.size() >= leastBeginning && placeKey(area.region).starts_with(key);
    }

    bool isCountry(std::string_view key, const GazetteerArea& area) {
        if (isCode(key, area.country)) return true;
        for (const auto& [name, code] : otherCountryNames) {
            if (key == name && area.country == code) return true;
        }
        return key.size() >= leastBeginning && countryKey(area.country).starts_with(key);
    }

    const std::string& countryKey(std::string_view code) {
        const auto [known, added] = countries_.try_emplace(std::string(code));
        if (added) known->second = placeKey(Country::name(known->first));
        return known->second;
    }

    std::string key_;
    std::map<std::string, std::string> countries_;
};

/// The best places of a search as it goes on, each once.
class Best {
 public:
    struct Place {
        GazetteerLine line;
        GazetteerArea area;
        std::uint64_t score = 0;
    };

    bool takes(std::uint64_t score) const {
        return places_.size() < Gazetteer::most || score >= places_.back().score;
    }

    void add(const Place& place) {
        const auto same = std::find_if(places_.begin(), places_.end(), [&](const Place& other) {
            return looksLike(place.line, other.line);
        });
        if (same != places_.end()) {
            if (!isBetterName(place, *same)) return;
            places_.erase(same);
        }
        const auto worse = std::find_if(places_.begin(), places_.end(), [&](const Place& other) {
            return other.score < place.score;
        });
        places_.insert(worse, place);
        if (places_.size() > Gazetteer::most) places_.pop_back();
    }

    const std::vector<Place>& places() const { return places_; }

 private:
    // The same place by another name, or one that nobody could tell from it.
    static bool looksLike(const GazetteerLine& a, const GazetteerLine& b) {
        return a.number == b.number || (a.name == b.name && a.area == b.area);
    }

    // The nearer to what was typed, or else its own.
    static bool isBetterName(const Place& a, const Place& b) {
        return a.score != b.score ? a.score > b.score : a.line.how < b.line.how;
    }

    std::vector<Place> places_;  // best first
};

std::uint64_t scoreOf(const GazetteerLine& line, std::string_view key) {
    const std::uint64_t people = line.population + 1;
    if (line.how == How::laterWord) return people;
    return people * nearness * (line.key == key ? nearness : 1);
}

Placemark placemark(const GazetteerLine& line, const GazetteerArea& area) {
    const std::string name(line.name);
    const std::string region(area.region);
    const bool hasRegion = !region.empty() && region != name;
    return {.locality = name,
            .name = name,
            .country = Country::name(std::string(area.country)),
            .zone = std::string(area.zone),
            .region = hasRegion ? std::optional(region) : std::nullopt};
}

std::optional<GazetteerArea> areaOf(const GazetteerLine& line, std::string_view areas) {
    const std::size_t place = firstLineNotBefore(areas, line.area);
    const auto area = GazetteerArea::parse(lineAt(areas, place));
    return area && area->number == line.area ? area : std::nullopt;
}

/// The areas that a qualifier allows, each worked out once.
class Allowed {
 public:
    Allowed(Qualifier qualifier, std::string_view areas)
        : qualifier_(std::move(qualifier)), areas_(areas) {}

    /// The area of a line, if it is allowed.
    const std::optional<GazetteerArea>& of(const GazetteerLine& line) {
        const auto [known, isNew] = byNumber_.try_emplace(line.area);
        if (isNew) {
            known->second = areaOf(line, areas_);
            if (known->second && !qualifier_.matches(*known->second)) known->second.reset();
        }
        return known->second;
    }

 private:
    Qualifier qualifier_;
    std::string_view areas_;
    std::unordered_map<decltype(GazetteerLine::area), std::optional<GazetteerArea>> byNumber_;
};

std::string_view between(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

enum class Match { beginning, whole };

constexpr std::size_t leastQualified = 3;  // bytes

std::vector<Placemark> find(const Gazetteer& gazetteer, const std::string& key, Match match,
                            Qualifier qualifier) {
    if (key.empty()) return {};
    const std::string_view table = gazetteer.places();
    Best best;
    Allowed allowed(std::move(qualifier), gazetteer.areas());
    for (std::size_t place = firstLineNotBefore(table, key); place < table.size();) {
        const std::string_view text = lineAt(table, place);
        if (!text.starts_with(key)) break;
        place += text.size() + 1;
        const auto line = GazetteerLine::parse(text);
        if (!line) continue;
        if (match == Match::whole && line->key != key) break;  // longer keys come after it
        const std::uint64_t score = scoreOf(*line, key);
        if (!best.takes(score)) continue;
        const auto& area = allowed.of(*line);
        if (area) best.add({*line, *area, score});
    }
    std::vector<Placemark> placemarks;
    for (const auto& place : best.places())
        placemarks.push_back(placemark(place.line, place.area));
    return placemarks;
}

}  // namespace

const Gazetteer& Gazetteer::builtIn() {
    static const Gazetteer gazetteer(between(noonwardPlaces, noonwardPlacesEnd),
                                     between(noonwardAreas, noonwardAreasEnd));
    return gazetteer;
}

std::vector<Placemark> Gazetteer::search(std::string_view typed) const {
    if (typed.size() > longestText) return {};
    if (const auto comma = typed.find(','); comma != std::string_view::npos) {
        const Qualifier after(placeKey(typed.substr(comma + 1)));
        const std::string name = placeKey(typed.substr(0, comma));
        // Behind one or two letters a qualifier does not tell which of thousands is meant.
        const Match match = name.size() < leastQualified ? Match::whole : Match::beginning;
        auto found = find(*this, name, match, after);
        if (!found.empty()) return found;
    }
    const std::string key = placeKey(typed);
    auto found = find(*this, key, Match::beginning, Qualifier({}));
    for (std::size_t space = key.rfind(' '); found.empty() && space != std::string::npos;
         space = space == 0 ? std::string::npos : key.rfind(' ', space - 1)) {
        const Qualifier after(key.substr(space + 1));
        found = find(*this, key.substr(0, space), Match::whole, after);
    }
    return found;
}

}  // namespace noonward
