#include "holidays/HolidaySource.h"

#include <algorithm>
#include <utility>

#include "base/Unicode.h"
#include "reference/Country.h"

namespace noonward {
namespace {

struct RegionKey {
    std::string_view country;
    std::string_view key;
};

/// Countries whose calendars are named by more than their code.
constexpr RegionKey regionKeys[] = {
    {"IN", "indian"},      {"US", "usa"},        {"GB", "uk"},           {"FR", "french"},
    {"DE", "german"},      {"SG", "singapore"},  {"JP", "japanese"},     {"AU", "australian"},
    {"CA", "canadian"},    {"HK", "hong_kong"},  {"CN", "china"},        {"NL", "dutch"},
    {"IT", "italian"},     {"ES", "spain"},      {"MX", "mexican"},      {"NZ", "new_zealand"},
    {"KR", "south_korea"}, {"MY", "malaysia"},   {"ID", "indonesian"},   {"PH", "philippines"},
    {"SE", "swedish"},     {"DK", "danish"},     {"NO", "norwegian"},    {"FI", "finnish"},
    {"PL", "polish"},      {"PT", "portuguese"}, {"IE", "irish"},        {"BR", "brazilian"},
    {"RU", "russian"},     {"TW", "taiwan"},     {"VN", "vietnamese"},   {"AT", "austrian"},
    {"GR", "greek"},       {"ZA", "sa"},         {"SA", "saudiarabian"}, {"TR", "turkish"},
    {"UA", "ukrainian"},   {"HU", "hungarian"},  {"CZ", "czech"},        {"RO", "romanian"},
    {"LT", "lithuanian"},
};

}  // namespace

std::vector<std::string> HolidaySource::addresses(std::string_view country) const {
    if (!Country::isCode(country)) return {};
    const auto address = [&](std::string_view key) {
        return origin + "/calendar/ical/en." + std::string(key) + "%23holiday%40" + groupDomain +
               "/public/basic.ics";
    };
    std::vector<std::string> result;
    const auto named = std::find_if(std::begin(regionKeys), std::end(regionKeys),
                                    [&](const auto& entry) { return entry.country == country; });
    if (named != std::end(regionKeys)) result.push_back(address(named->key));
    result.push_back(address(unicode::lowercased(country)));
    return result;
}

std::optional<std::string> HolidaySource::calendar(HttpResponse response) {
    if (response.status != 200 || !unicode::isValidUtf8(response.body) ||
        response.body.find("BEGIN:VCALENDAR") == std::string::npos)
        return std::nullopt;
    return std::move(response.body);
}

}  // namespace noonward
