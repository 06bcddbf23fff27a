#include "model/Texts.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <string_view>

#include "base/Unicode.h"
#include "model/Strip.h"
#include "model/Weekdays.h"

namespace noonward {

namespace {

// As British English abbreviates them.
constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar",  "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sept", "Oct", "Nov", "Dec"};

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

int onTwelveHourClock(int hour) {
    return hour % 12 == 0 ? 12 : hour % 12;
}

// "Tue 4 Mar"; weekdays are 1 = Sunday … 7 = Saturday.
std::string dateText(int weekday, DayKey day) {
    return std::string(shortWeekdayName(weekday)) + " " + std::to_string(day.day()) + " " +
           std::string(months.at(static_cast<std::size_t>(day.month() - 1)));
}

template <typename LineOf>
std::string joined(const std::vector<Row>& rows, std::string_view separator, LineOf lineOf) {
    std::string text;
    for (const Row& row : rows) {
        if (&row != &rows.front()) text += separator;
        text += lineOf(row);
    }
    return text;
}

}  // namespace

std::string timeText(Instant at, const Row& row, HourFormat format) {
    const LocalTime local = row.cal.local(at);
    if (!twelve(format)) return twoDigits(local.hour) + ":" + twoDigits(local.minute);
    return std::to_string(onTwelveHourClock(local.hour)) + ":" + twoDigits(local.minute) +
           (local.hour < 12 ? " AM" : " PM");
}

std::string dateText(Instant at, const Row& row) {
    const LocalTime local = row.cal.local(at);
    return dateText(local.weekday, local.dayKey());
}

std::string dateText(DayKey day) {
    const std::chrono::year_month_day date{std::chrono::year(day.year()),
                                           std::chrono::month(static_cast<unsigned>(day.month())),
                                           std::chrono::day(static_cast<unsigned>(day.day()))};
    if (!date.ok()) return day.text();
    const std::chrono::weekday weekday{std::chrono::sys_days(date)};
    return dateText(static_cast<int>(weekday.c_encoding()) + 1, day);
}

std::string offsetText(const Row& row, const Row& home, Instant at) {
    const int difference = row.offsetMinutes(at) - home.offsetMinutes(at);
    if (difference == 0) return {};
    const int size = std::abs(difference);
    const std::string text = (difference > 0 ? "+" : "−") + std::to_string(size / 60);
    return text + (size % 60 == 0 ? "h" : ":" + twoDigits(size % 60));
}

std::string hourText(int hour, HourFormat format) {
    if (!twelve(format)) return std::to_string(hour);
    return std::to_string(onTwelveHourClock(hour)) + (hour < 12 ? "a" : "p");
}

std::string rangeText(const Meeting& meeting, const Row& row, HourFormat format) {
    const Instant end = moved(meeting.from, minutes(meeting.minutes));
    return timeText(meeting.from, row, format) + "–" + timeText(end, row, format);
}

std::string summaryText(Instant at, const std::vector<Row>& rows, HourFormat format) {
    return joined(rows, "  ·  ", [&](const Row& row) {
        return unicode::isolated(row.label) + " " + timeText(at, row, format);
    });
}

std::string plainText(Instant at, const std::vector<Row>& rows, HourFormat format) {
    return joined(rows, "\n", [&](const Row& row) {
        return row.label + " " + timeText(at, row, format) + " " + dateText(at, row) + " (" +
               row.abbr(at) + ")";
    });
}

std::string emailText(const Meeting& meeting, const std::vector<Row>& rows, HourFormat format) {
    const std::string length =
        meeting.minutes == 60 ? "1 hour" : std::to_string(meeting.minutes) + " minutes";
    return "Proposed time (" + length + "):\n" + joined(rows, "\n", [&](const Row& row) {
               return row.label + ": " + rangeText(meeting, row, format) + " " +
                      row.abbr(meeting.from) + ", " + dateText(meeting.from, row);
           });
}

}  // namespace noonward
