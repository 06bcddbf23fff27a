#include "reference/ZoneLabels.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "base/Unicode.h"

namespace noonward {

std::string shortLabel(std::string_view name) {
    std::string initials;
    int words = 0;
    for (std::size_t begin = 0; begin < name.size() && words < 3;) {
        const std::size_t end = std::min(name.find_first_of(" -", begin), name.size());
        const std::string_view word = name.substr(begin, end - begin);
        if (unicode::startsUppercase(word)) {
            initials += unicode::firstCharacters(word, 1);
            ++words;
        }
        begin = end + 1;
    }
    return unicode::uppercased(words < 2 ? unicode::firstCharacters(name, 3) : initials);
}

std::optional<std::string> tzAbbreviation(const TimeZone& zone, Instant at) {
    const std::string& identifier = zone.identifier();
    if (identifier == "GMT" || identifier == "UTC") return "UTC";
    std::string letters = zone.abbreviation(at);
    if (letters.empty() || letters.front() == '+' || letters.front() == '-') return std::nullopt;
    return letters;
}

std::string offsetAbbreviation(seconds offset) {
    const auto total = std::chrono::duration_cast<minutes>(offset).count();
    if (total == 0) return "GMT";
    const auto size = std::abs(total);
    std::string text = total < 0 ? "GMT-" : "GMT+";
    text += std::to_string(size / 60);
    if (const auto rest = size % 60; rest != 0) {
        text += rest < 10 ? ":0" : ":";
        text += std::to_string(rest);
    }
    return text;
}

}  // namespace noonward
