#pragma once

#include <ctime>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/Unicode.h"
#include "holidays/HolidayDays.h"

namespace noonward::test {

/// Reads calendars as one would by hand, pass after pass over copies of the text: what the fast
/// reader is held against.
class NaiveCalendar {
 public:
    static HolidayDays read(std::string text) {
        replaceAll(text, "\r\n", "\n");
        replaceAll(text, "\n ", "");
        std::map<std::string, Holiday> days;
        const auto events = split(text, "BEGIN:VEVENT");
        for (std::size_t i = 1; i < events.size(); ++i)
            readEvent(events[i], days);
        std::vector<HolidayDays::Entry> entries;
        for (const auto& [key, holiday] : days)
            entries.emplace_back(DayKey::parse(key).value(), holiday);
        return HolidayDays(entries);
    }

 private:
    static void replaceAll(std::string& text, const std::string& from, const std::string& to) {
        for (auto at = text.find(from); at != std::string::npos;
             at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    }

    static std::vector<std::string> split(const std::string& text, const std::string& at) {
        std::vector<std::string> pieces;
        std::size_t start = 0;
        for (auto end = text.find(at); end != std::string::npos; end = text.find(at, start)) {
            pieces.push_back(text.substr(start, end - start));
            start = end + at.size();
        }
        pieces.push_back(text.substr(start));
        return pieces;
    }

    static std::string plain(std::string text) {
        replaceAll(text, "\\n", "\n");
        replaceAll(text, "\\,", ",");
        replaceAll(text, "\\;", ";");
        return std::string(unicode::trimmed(text));
    }

    static std::string lastPiece(const std::string& line) {
        std::string last;
        for (const std::string& piece : split(line, ":"))
            if (!piece.empty()) last = piece;
        return last;
    }

    static bool readDate(const std::string& value, std::time_t& out) {
        if (value.size() < 8) return false;
        for (int i = 0; i < 8; ++i)
            if (value[static_cast<std::size_t>(i)] < '0' ||
                value[static_cast<std::size_t>(i)] > '9')
                return false;
        std::tm parts{};
        parts.tm_year = std::stoi(value.substr(0, 4)) - 1900;
        parts.tm_mon = std::stoi(value.substr(4, 2)) - 1;
        parts.tm_mday = std::stoi(value.substr(6, 2));
        out = ::timegm(&parts);
        return parts.tm_year >= 1 - 1900 && parts.tm_year <= 9999 - 1900;
    }

    static std::vector<std::string> dates(const std::string& start, const std::string& end) {
        std::vector<std::string> keys;
        std::time_t from = 0;
        std::time_t to = 0;
        if (!readDate(start, from)) return keys;
        if (!readDate(end, to)) to = from + 86'400;
        for (std::time_t at = from; keys.empty() || (at < to && keys.size() < 14); at += 86'400) {
            std::string key(16, '\0');
            key.resize(std::strftime(key.data(), key.size(), "%Y-%m-%d", std::gmtime(&at)));
            key.insert(0, 10 - key.size(), '0');
            keys.push_back(key);
        }
        return keys;
    }

    static void readEvent(const std::string& event, std::map<std::string, Holiday>& days) {
        std::string start;
        std::string end;
        std::string summary;
        std::string description;
        bool hasSummary = false;
        for (const std::string& line : split(event, "\n")) {
            if (line.rfind("DTSTART", 0) == 0) {
                start = lastPiece(line);
            } else if (line.rfind("DTEND", 0) == 0) {
                end = lastPiece(line);
            } else if (line.rfind("SUMMARY:", 0) == 0) {
                summary = plain(line.substr(8));
                hasSummary = true;
            } else if (line.rfind("DESCRIPTION:", 0) == 0) {
                description = split(plain(line.substr(12)), "\n")[0];
            }
        }
        if (start.empty() || !hasSummary || description.rfind("Public holiday", 0) != 0) return;
        replaceAll(summary, " (regional holiday)", "");
        Holiday holiday{summary};
        if (description.rfind("Public holiday in ", 0) == 0)
            holiday.regional = description.substr(18);
        for (const std::string& key : dates(start, end))
            merge(days, key, holiday);
    }

    static void merge(std::map<std::string, Holiday>& days, const std::string& key,
                      const Holiday& added) {
        const auto [found, isNew] = days.emplace(key, added);
        Holiday& kept = found->second;
        if (isNew) return;
        const bool keptRegional = kept.regional.has_value();
        const bool addedRegional = added.regional.has_value();
        if (keptRegional && !addedRegional) kept = added;
        if (keptRegional == addedRegional && kept.name.find(added.name) == std::string::npos)
            kept.name += " · " + added.name;
    }
};

}  // namespace noonward::test
