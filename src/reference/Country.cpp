#include "reference/Country.h"

#include <unicode/locdspnm.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "time/ZoneDatabase.h"

namespace noonward::Country {
namespace {

using ByZone = std::map<std::string, std::string, std::less<>>;

const ByZone& byZone() {
    static const ByZone countries = [] {
        ByZone map;
        for (const auto& row : zonedatabase::table())
            map.insert_or_assign(row.zone, row.country);
        return map;
    }();
    return countries;
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 8> aliases = {{
    {"Asia/Calcutta", "Asia/Kolkata"},
    {"Asia/Saigon", "Asia/Ho_Chi_Minh"},
    {"Asia/Katmandu", "Asia/Kathmandu"},
    {"Asia/Rangoon", "Asia/Yangon"},
    {"Europe/Kiev", "Europe/Kyiv"},
    {"US/Eastern", "America/New_York"},
    {"US/Pacific", "America/Los_Angeles"},
    {"US/Central", "America/Chicago"},
}};

std::optional<std::string> inTable(std::string_view zone) {
    const auto found = byZone().find(zone);
    if (found == byZone().end()) return std::nullopt;
    return found->second;
}

constexpr std::array<std::string_view, 14> sundayToThursday = {
    "SA", "QA", "KW", "BH", "OM", "EG", "JO", "IL", "IQ", "DZ", "LY", "SY", "SD", "YE",
};

}  // namespace

bool isCode(std::string_view text) {
    return text.size() == 2 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

std::optional<std::string> code(std::string_view forZone) {
    if (auto country = inTable(forZone)) return country;
    for (const auto& [alias, zone] : aliases) {
        if (alias == forZone) return inTable(zone);
    }
    return std::nullopt;
}

std::string name(const std::string& code) {
    if (!isCode(code)) return code;
    static const std::unique_ptr<icu::LocaleDisplayNames> names(
        icu::LocaleDisplayNames::createInstance(icu::Locale::getUK()));
    if (!names) return code;
    icu::UnicodeString result;
    std::string utf8;
    return names->regionDisplayName(code.c_str(), result).toUTF8String(utf8);
}

const std::vector<int>& workingDays(const std::optional<std::string>& code) {
    static const std::vector<int> fromSunday = {1, 2, 3, 4, 5};
    static const std::vector<int> fromSaturday = {7, 1, 2, 3, 4};
    static const std::vector<int> fromMonday = {2, 3, 4, 5, 6};
    if (!code) return fromMonday;
    if (*code == "IR") return fromSaturday;
    const auto& sunday = sundayToThursday;
    return std::find(sunday.begin(), sunday.end(), *code) != sunday.end() ? fromSunday : fromMonday;
}

}  // namespace noonward::Country
