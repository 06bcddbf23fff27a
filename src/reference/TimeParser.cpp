#include "reference/TimeParser.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>

#include "base/Unicode.h"
#include "reference/Cities.h"
#include "time/Calendar.h"

namespace noonward::TimeParser {
namespace {

constexpr std::ptrdiff_t longestText = 256;

bool isTooLong(std::string_view text) {
    const auto isTrail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const auto trails = std::count_if(text.begin(), text.end(), isTrail);
    return static_cast<std::ptrdiff_t>(text.size()) - trails > longestText;
}

template <typename Table>
auto find(const Table& table, std::string_view word) {
    const auto row = std::find_if(table.begin(), table.end(),
                                  [&](const auto& entry) { return entry.first == word; });
    return row == table.end() ? std::nullopt : std::optional(row->second);
}

/// The day a phrase names.
struct Day {
    enum class Kind { relative, weekday };
    Kind kind;
    int number;  ///< days from today; or 1 = Sunday … 7 = Saturday
};

using enum Day::Kind;

constexpr std::array<std::pair<std::string_view, Day>, 25> dayWords = {{
    {"today", {relative, 0}},    {"tonight", {relative, 0}},  {"tomorrow", {relative, 1}},
    {"tmrw", {relative, 1}},     {"tmr", {relative, 1}},      {"tomorow", {relative, 1}},
    {"tommorow", {relative, 1}}, {"sun", {weekday, 1}},       {"sunday", {weekday, 1}},
    {"mon", {weekday, 2}},       {"monday", {weekday, 2}},    {"tue", {weekday, 3}},
    {"tues", {weekday, 3}},      {"tuesday", {weekday, 3}},   {"wed", {weekday, 4}},
    {"weds", {weekday, 4}},      {"wednesday", {weekday, 4}}, {"thu", {weekday, 5}},
    {"thur", {weekday, 5}},      {"thurs", {weekday, 5}},     {"thursday", {weekday, 5}},
    {"fri", {weekday, 6}},       {"friday", {weekday, 6}},    {"sat", {weekday, 7}},
    {"saturday", {weekday, 7}},
}};

/// A phrase, its day words taken out.
struct Phrase {
    std::optional<Day> day;
    bool next = false;
    std::string rest;
};

Phrase withoutDayWords(std::string_view text) {
    Phrase phrase;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        const std::string_view token = text.substr(begin, end - begin);
        begin = end + 1;
        if (token.empty()) continue;
        const std::string_view word = unicode::trimmedPunctuation(token);
        if (word == "next") {
            phrase.next = true;
        } else if (const auto day = find(dayWords, word)) {
            phrase.day = day;
        } else if (word != "on") {
            if (!phrase.rest.empty()) phrase.rest += ' ';
            phrase.rest += token;
        }
    }
    return phrase;
}

/// The parts of a time as typed.
struct TypedTime {
    int hour = 0;
    int minute = 0;
    char marker = 0;  ///< 'a', 'p' or none
    std::string place;
};

/// hour, minutes behind a separator or straight behind it, am or pm, and the place
const icu::RegexPattern* timePattern() {
    static const std::unique_ptr<const icu::RegexPattern> pattern = [] {
        UErrorCode status = U_ZERO_ERROR;
        UParseError error{};
        return std::unique_ptr<const icu::RegexPattern>(icu::RegexPattern::compile(
            icu::UnicodeString::fromUTF8(R"(^([0-9]{1,2})(?:[:.h]([0-9]{2})|([0-9]{2}))?\s*)"
                                         R"((?:(am|pm|a\.m\.|p\.m\.|a|p)(?![a-z]))?)"
                                         R"((?:\s+|(?=[^0-9\s])|$)(.*)$)"),
            error, status));
    }();
    return pattern.get();
}

std::optional<TypedTime> typedTime(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto wide = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    const std::unique_ptr<icu::RegexMatcher> match(timePattern()->matcher(wide, status));
    if (U_FAILURE(status) || !match->find(status)) return std::nullopt;

    const auto group = [&](std::int32_t number) {
        std::string utf8;
        return match->group(number, status).toUTF8String(utf8);
    };
    const auto number = [&](const std::string& digits) {
        return digits.empty() ? 0 : std::stoi(digits);
    };
    const std::string separated = group(2);
    const std::string marker = group(4);
    return TypedTime{.hour = number(group(1)),
                     .minute = number(separated.empty() ? group(3) : separated),
                     .marker = marker.empty() ? char{} : marker.front(),
                     .place = group(5)};
}

/// The hour of the day; nothing where a clock has no such hour.
std::optional<int> hourOfDay(const TypedTime& time) {
    if (time.marker == 0) {
        if (time.hour > 23) return std::nullopt;
        // Nobody meets at three in the night.
        return time.hour >= 1 && time.hour <= 6 ? time.hour + 12 : time.hour;
    }
    if (time.hour < 1 || time.hour > 12) return std::nullopt;
    return time.hour % 12 + (time.marker == 'p' ? 12 : 0);
}

bool dropPrefix(std::string_view& text, std::string_view prefix) {
    if (text.substr(0, prefix.size()) != prefix) return false;
    text.remove_prefix(prefix.size());
    return true;
}

void dropSuffix(std::string_view& text, std::string_view suffix) {
    if (text.size() < suffix.size()) return;
    if (text.substr(text.size() - suffix.size()) == suffix) text.remove_suffix(suffix.size());
}

/// "in new york time" without what only joins it to the sentence.
std::string_view barePlace(std::string_view phrase) {
    std::string_view text = unicode::trimmedSpaceAndPunctuation(phrase);
    for (const std::string_view prefix : {"in ", "for ", "at "})
        dropPrefix(text, prefix);
    dropSuffix(text, " time");
    dropSuffix(text, " local");
    return unicode::trimmed(text);
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 32> abbreviations = {{
    {"ist", "Asia/Kolkata"},
    {"india", "Asia/Kolkata"},
    {"est", "America/New_York"},
    {"edt", "America/New_York"},
    {"et", "America/New_York"},
    {"eastern", "America/New_York"},
    {"cst", "America/Chicago"},
    {"cdt", "America/Chicago"},
    {"ct", "America/Chicago"},
    {"central", "America/Chicago"},
    {"mst", "America/Denver"},
    {"mdt", "America/Denver"},
    {"mt", "America/Denver"},
    {"mountain", "America/Denver"},
    {"pst", "America/Los_Angeles"},
    {"pdt", "America/Los_Angeles"},
    {"pt", "America/Los_Angeles"},
    {"pacific", "America/Los_Angeles"},
    {"aest", "Australia/Sydney"},
    {"aedt", "Australia/Sydney"},
    {"gmt", "Europe/London"},
    {"bst", "Europe/London"},
    {"uk", "Europe/London"},
    {"cet", "Europe/Paris"},
    {"cest", "Europe/Paris"},
    {"sgt", "Asia/Singapore"},
    {"hkt", "Asia/Hong_Kong"},
    {"jst", "Asia/Tokyo"},
    {"kst", "Asia/Seoul"},
    {"gst", "Asia/Dubai"},
    {"utc", "UTC"},
    {"z", "UTC"},
}};

/// The time on the named day, counted from today in the zone; it may have passed.
std::optional<Instant> onDay(const Phrase& phrase, int hour, int minute, const Calendar& calendar,
                             Instant now) {
    int days = phrase.day->number;
    if (phrase.day->kind == weekday) {
        days = (days - calendar.local(now).weekday + 7) % 7;
        if (days == 0 && phrase.next) days = 7;
    }
    return calendar.timeOfDay(now, days, hour, minute);
}

/// The time on the shown day, or the next such time where the strip rolls with now.
std::optional<Instant> moment(int hour, int minute, const Calendar& calendar,
                              const TimeContext& context) {
    const bool rolls = context.rolling && context.dayOffset == 0;
    const Instant from = rolls ? context.now : context.dayStart;
    for (const int days : rolls ? std::array{0, 1, 2} : std::array{-1, 0, 1}) {
        const auto at = calendar.timeOfDay(from, days, hour, minute);
        if (!at) continue;
        if (rolls ? *at > from : *at >= from && *at - hours(24) < from) return at;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Instant> parse(std::string_view text, const TimeContext& context) {
    if (isTooLong(text)) return std::nullopt;
    const Phrase phrase = withoutDayWords(unicode::lowercased(text));
    const auto time = typedTime(unicode::trimmed(phrase.rest));
    if (!time || time->minute > 59) return std::nullopt;
    const auto hour = hourOfDay(*time);
    if (!hour) return std::nullopt;
    const auto place = zone(time->place, context);
    if (!place) return std::nullopt;

    const Calendar calendar(*place);
    if (phrase.day) return onDay(phrase, *hour, time->minute, calendar, context.now);
    return moment(*hour, time->minute, calendar, context);
}

std::optional<TimeZone> zone(std::string_view phrase, const TimeContext& context) {
    const std::string_view text = barePlace(phrase);
    if (text.empty()) return context.homeZone;
    for (const TimeContext::Row& row : context.rows) {
        if (unicode::lowercased(row.shortName) == text) return row.zone;
        if (unicode::lowercased(row.label).starts_with(text)) return row.zone;
    }
    if (const auto identifier = find(abbreviations, text)) return TimeZone::find(*identifier);
    for (const City& city : Cities::curated()) {
        if (unicode::lowercased(city.shortName) == text) return TimeZone::find(city.zone);
    }
    const auto cities = Cities::search(text);
    return cities.empty() ? std::nullopt : TimeZone::find(cities.front()->zone);
}

}  // namespace noonward::TimeParser
