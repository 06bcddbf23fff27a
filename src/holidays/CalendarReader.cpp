#include "holidays/CalendarReader.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "base/Unicode.h"

namespace noonward {
namespace {

using Days = std::chrono::sys_days;

constexpr std::size_t mostDays = 14;

/// A day's name that is this long already takes no more: thousands of holidays on one day are an
/// attack, and to look through all their names for each of them would take minutes.
constexpr std::size_t longName = 1000;

/// Hands out a text's lines, folded ones joined (RFC 5545 §3.1).
class Lines {
 public:
    explicit Lines(std::string_view text) : rest_(text) {}

    /// The next line without its end, or nothing after the last. Valid until the next call.
    std::optional<std::string_view> next() {
        if (rest_.empty()) return std::nullopt;
        std::string_view line = nextPhysical();
        if (!isFolded()) return line;
        joined_ = line;
        while (isFolded()) {
            rest_.remove_prefix(1);
            joined_ += nextPhysical();
        }
        return joined_;
    }

 private:
    bool isFolded() const { return lineEnded_ && !rest_.empty() && rest_.front() == ' '; }

    std::string_view nextPhysical() {
        const auto end = rest_.find('\n');
        lineEnded_ = end != std::string_view::npos;
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(lineEnded_ ? end + 1 : rest_.size());
        if (lineEnded_ && !line.empty() && line.back() == '\r') line.remove_suffix(1);
        return line;
    }

    std::string_view rest_;
    std::string joined_;
    bool lineEnded_ = false;
};

/// TEXT without white space at both ends and without the escapes of commas, semicolons and line
/// ends (RFC 5545 §3.3.11). Doubled backslashes stay as they are: no name of a day has any.
std::string unescaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (;;) {
        const auto backslash = text.find('\\');
        result += text.substr(0, backslash);
        if (backslash == std::string_view::npos) break;
        text.remove_prefix(backslash + 1);
        const char escaped = text.empty() ? '\0' : text.front();
        if (escaped == 'n' || escaped == ',' || escaped == ';') {
            result += escaped == 'n' ? '\n' : escaped;
            text.remove_prefix(1);
        } else {
            result += '\\';
        }
    }
    const std::string_view trimmed = unicode::trimmed(result);
    if (trimmed.size() < result.size()) result = std::string(trimmed);
    return result;
}

/// What follows a line's last colon, colons at its end aside.
std::string_view afterLastColon(std::string_view line) {
    const auto last = line.find_last_not_of(':');
    line = line.substr(0, last + 1);
    return line.substr(line.rfind(':') + 1);
}

std::optional<unsigned> number(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stopped != end) return std::nullopt;
    return value;
}

/// DATE or the beginning of DATE-TIME, "yyyymmdd" (RFC 5545 §3.3.4). Days and months beyond the
/// calendar's run on: 20250230 is 2025-03-02.
std::optional<Days> date(std::string_view value) {
    if (value.size() < 8) return std::nullopt;
    const auto year = number(value.substr(0, 4));
    const auto month = number(value.substr(4, 2));
    const auto day = number(value.substr(6, 2));
    if (!year || !month || !day) return std::nullopt;
    using namespace std::chrono;
    const auto january = std::chrono::year(static_cast<int>(*year)) / January;
    const Days result = Days((january + months(*month) - months(1)) / 1) + days(*day) - days(1);
    const int reached = static_cast<int>(year_month_day(result).year());
    if (reached < 1 || reached > 9999) return std::nullopt;
    return result;
}

DayKey dayKey(Days at) {
    const std::chrono::year_month_day day(at);
    return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day()))};
}

/// What an event's lines say so far.
struct Event {
    std::optional<Days> start;
    std::optional<Days> end;
    bool hasSummary = false;
    std::string summary;      // escaped
    std::string description;  // escaped

    void clear() {
        start.reset();
        end.reset();
        hasSummary = false;
        summary.clear();
        description.clear();
    }

    void take(std::string_view line) {
        if (line.empty() || (line.front() != 'D' && line.front() != 'S')) return;  // most lines
        if (line.starts_with("DTSTART")) {
            start = date(afterLastColon(line));
        } else if (line.starts_with("DTEND")) {
            end = date(afterLastColon(line));
        } else if (line.starts_with("SUMMARY:")) {
            hasSummary = true;
            summary = line.substr(8);
        } else if (line.starts_with("DESCRIPTION:")) {
            description = line.substr(12);
        }
    }

    /// The holiday it is, if it is one.
    std::optional<Holiday> holiday() const {
        if (!start || !hasSummary) return std::nullopt;
        constexpr std::string_view publicHoliday = "Public holiday";
        constexpr std::string_view publicHolidayIn = "Public holiday in ";
        constexpr std::string_view mark = " (regional holiday)";

        std::string kind = unescaped(description);
        kind.erase(std::min(kind.find('\n'), kind.size()));
        if (!kind.starts_with(publicHoliday)) return std::nullopt;

        Holiday holiday{unescaped(summary)};
        for (auto at = holiday.name.find(mark); at != std::string::npos;
             at = holiday.name.find(mark, at))
            holiday.name.erase(at, mark.size());
        if (kind.starts_with(publicHolidayIn))
            holiday.regional = kind.substr(publicHolidayIn.size());
        return holiday;
    }
};

/// Joins a holiday to the one that has its day already.
void merge(Holiday& kept, const Holiday& added) {
    if (kept.regional && !added.regional) {
        kept = added;
    } else if (kept.regional.has_value() == added.regional.has_value() &&
               kept.name.size() < longName && kept.name.find(added.name) == std::string::npos) {
        kept.name += " · " + added.name;
    }
}

/// Collects the events of one text.
class Collector {
 public:
    void add(const Event& event) {
        auto holiday = event.holiday();
        if (!holiday) return;
        const auto first = *event.start;
        const auto end = event.end.value_or(first + std::chrono::days(1));
        auto day = first;
        do {
            days_.emplace_back(dayKey(day), holidays_.size());
            day += std::chrono::days(1);
        } while (day < end && day < first + std::chrono::days(mostDays));
        holidays_.push_back(std::move(*holiday));
    }

    HolidayDays result() {
        std::sort(days_.begin(), days_.end());  // of one day in the text's order
        std::vector<HolidayDays::Entry> entries;
        entries.reserve(days_.size());
        for (const auto& [day, index] : days_) {
            if (!entries.empty() && entries.back().first == day)
                merge(entries.back().second, holidays_[index]);
            else
                entries.emplace_back(day, holidays_[index]);
        }
        return HolidayDays(std::move(entries));
    }

 private:
    std::vector<Holiday> holidays_;
    std::vector<std::pair<DayKey, std::size_t>> days_;  // and indices into the former
};

}  // namespace

HolidayDays readCalendar(std::string_view text) {
    constexpr std::string_view begin = "BEGIN:VEVENT";
    Collector collector;
    Event event;
    bool inEvent = false;
    Lines lines(text);
    while (auto line = lines.next()) {
        // An event begins wherever these letters stand, and ends only where the next one begins.
        for (auto at = line->find(begin); at != std::string_view::npos; at = line->find(begin)) {
            if (inEvent) {
                event.take(line->substr(0, at));
                collector.add(event);
            }
            event.clear();
            inEvent = true;
            line->remove_prefix(at + begin.size());
        }
        if (inEvent) event.take(*line);
    }
    if (inEvent) collector.add(event);
    return collector.result();
}

}  // namespace noonward
