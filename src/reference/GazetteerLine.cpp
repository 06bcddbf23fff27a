#include "reference/GazetteerLine.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace noonward {

namespace {

/// The fields of a tab-separated line, nothing when there are more or fewer.
template <std::size_t count>
std::optional<std::array<std::string_view, count>> fieldsOf(std::string_view line) {
    std::array<std::string_view, count> fields;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = line.find('\t');
        const bool last = i + 1 == count;
        if ((end == std::string_view::npos) != last) return std::nullopt;
        fields[i] = line.substr(0, end);
        if (!last) line.remove_prefix(end + 1);
    }
    return fields;
}

}  // namespace

std::optional<GazetteerLine> GazetteerLine::parse(std::string_view line) {
    const auto fields = fieldsOf<6>(line);
    if (!fields) return std::nullopt;
    const auto& [key, how, people, number, name, area] = *fields;
    if (how.size() != 1 || how[0] < '0' || how[0] > '2') return std::nullopt;
    std::uint64_t population = 0;
    const char* end = people.data() + people.size();
    const auto [stop, error] = std::from_chars(people.data(), end, population);
    if (error != std::errc() || stop != end) return std::nullopt;
    return GazetteerLine{key, static_cast<How>(how[0] - '0'), population, number, name, area};
}

std::optional<GazetteerArea> GazetteerArea::parse(std::string_view line) {
    const auto fields = fieldsOf<5>(line);
    if (!fields) return std::nullopt;
    const auto& [number, country, region, regionShort, zone] = *fields;
    return GazetteerArea{number, country, region, regionShort, zone};
}

std::size_t firstLineNotBefore(std::string_view table, std::string_view key) {
    std::size_t low = 0;  // a line begins here, and at `high`, or the table ends there
    std::size_t high = table.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const std::size_t before = table.substr(0, middle).rfind('\n');
        const std::size_t begin =
            before == std::string_view::npos || before < low ? low : before + 1;
        const std::string_view line = lineAt(table, begin);
        if (line.substr(0, line.find('\t')) < key) {
            low = std::min(begin + line.size() + 1, high);
        } else {
            high = begin;
        }
    }
    return low;
}

}  // namespace noonward
