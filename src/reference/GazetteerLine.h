#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace noonward {

/// A line of the gazetteer's table: a text that a place is found by, and the place.
struct GazetteerLine {
    enum class How { name, otherName, laterWord };  ///< how the place bears the key

    std::string_view key;  ///< see `placeKey`
    How how = How::name;
    std::uint64_t population = 0;
    std::string_view number;  ///< tells places apart
    std::string_view name;
    std::string_view area;  ///< number of a `GazetteerArea`

    /// Nothing for a line of another form. `line` has no line feed and must outlive the result.
    static std::optional<GazetteerLine> parse(std::string_view line);
};

/// A line of the gazetteer's other table: what places near each other have in common.
struct GazetteerArea {
    std::string_view number;
    std::string_view country;      ///< two-letter code of ISO 3166
    std::string_view region;       ///< "Missouri", or the region's seat; empty where none is known
    std::string_view regionShort;  ///< "MO"; empty where people write none
    std::string_view zone;         ///< time-zone identifier

    /// Nothing for a line of another form. `line` has no line feed and must outlive the result.
    static std::optional<GazetteerArea> parse(std::string_view line);
};

/// Where the first line begins whose key is not less than `key`, in a table of lines sorted by
/// their bytes; the size of the table where there is none.
std::size_t firstLineNotBefore(std::string_view table, std::string_view key);

/// The line that begins at `place`, without its line feed.
inline std::string_view lineAt(std::string_view table, std::size_t place) {
    const std::string_view rest = table.substr(place);
    return rest.substr(0, rest.find('\n'));
}

}  // namespace noonward
