#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "reference/City.h"

namespace noonward {

/// Finds cities by what a person types, over a curated list and a list of cities made from zones.
/// Everything is folded once; a search looks its words up in a sorted list.
class CityIndex {
 public:
    /// The lists must outlive the index.
    CityIndex(const std::vector<City>& curated, const std::vector<City>& zones);

    CityIndex(const CityIndex&) = delete;
    CityIndex& operator=(const CityIndex&) = delete;

    /// The cities that match, ignoring case and diacritics, best first: curated ones by name, by
    /// alias, by the beginning of the country; then zones' cities by name, but those whose names
    /// have been found. In each group the order is the lists'. A name or an alias matches when
    /// it, or one of its words, begins with the query. None for a blank query.
    std::vector<const City*> search(std::string_view query) const;

 private:
    enum class Group : std::uint8_t { name, alias, country, zone };  ///< best first

    /// A text that may begin with a query: a whole name, or a later word of it.
    struct Entry {
        std::string_view text;
        Group group;
        std::uint32_t city;  ///< place in its list
    };

    static constexpr std::array curatedGroups = {Group::name, Group::alias, Group::country};
    struct Found;

    void find(std::string_view text, Found& found) const;
    std::vector<const City*> listed(const Found& found) const;

    void add(const std::string& text, Group group, std::size_t city);
    void addWords(const std::string& text, Group group, std::size_t city);
    void relateNamesakes();

    const std::vector<City>& curated_;
    const std::vector<City>& zones_;
    std::deque<std::string> texts_;  // what the entries' texts are parts of
    std::vector<Entry> entries_;     // by text
    /// For each curated city the zones' cities that have its name.
    std::vector<std::vector<std::uint32_t>> namesakes_;
};

}  // namespace noonward
