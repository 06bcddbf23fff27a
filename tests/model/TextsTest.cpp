#include "model/Texts.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;
using test::zoneNamed;

constexpr auto h24 = HourFormat::h24;
constexpr auto h12 = HourFormat::h12;

Row rowIn(const char* zone, const char* label = "", const Place& place = {}) {
    Row row(0, place, zoneNamed(zone), false);
    row.label = label;
    return row;
}

TEST(Texts, ShowTheClock) {
    const struct {
        const char* zone;
        const char* at;
        const char* h24;
        const char* h12;
    } cases[] = {
        {"UTC", "2026-03-04 00:00", "00:00", "12:00 AM"},
        {"UTC", "2026-03-04 00:30", "00:30", "12:30 AM"},
        {"UTC", "2026-03-04 09:05:59", "09:05", "9:05 AM"},
        {"UTC", "2026-03-04 11:59", "11:59", "11:59 AM"},
        {"UTC", "2026-03-04 12:00", "12:00", "12:00 PM"},
        {"UTC", "2026-03-04 19:05", "19:05", "7:05 PM"},
        {"Asia/Kathmandu", "2026-03-04 18:20", "00:05", "12:05 AM"},
        {"Africa/Cairo", "2026-04-23 22:00", "01:00", "1:00 AM"},
    };
    for (const auto& [zone, at, in24, in12] : cases) {
        EXPECT_EQ(timeText(utc(at), rowIn(zone), h24), in24);
        EXPECT_EQ(timeText(utc(at), rowIn(zone), HourFormat::utc), in24);
        EXPECT_EQ(timeText(utc(at), rowIn(zone), h12), in12);
    }
}

TEST(Texts, ShowTheDate) {
    const struct {
        const char* zone;
        const char* at;
        const char* text;
    } cases[] = {
        {"UTC", "2025-03-04 12:00", "Tue 4 Mar"},
        {"UTC", "2026-09-30 12:00", "Wed 30 Sept"},
        {"UTC", "2026-01-01 00:00", "Thu 1 Jan"},
        {"UTC", "2026-12-31 23:59", "Thu 31 Dec"},
        {"UTC", "2024-02-29 12:00", "Thu 29 Feb"},
        {"Asia/Tokyo", "2026-05-31 15:00", "Mon 1 Jun"},
        {"Pacific/Honolulu", "2026-08-01 09:59", "Fri 31 Jul"},
    };
    for (const auto& [zone, at, text] : cases)
        EXPECT_EQ(dateText(utc(at), rowIn(zone)), text);
    EXPECT_EQ(dateText(Instant::max(), rowIn("UTC")), "Thu 30 Dec");
}

TEST(Texts, ShowTheOffsetFromHome) {
    const struct {
        const char* row;
        const char* home;
        const char* at;
        const char* text;
    } cases[] = {
        {"Asia/Kolkata", "Europe/London", "2026-01-15 12:00", "+5:30"},
        {"Asia/Kathmandu", "Europe/London", "2026-01-15 12:00", "+5:45"},
        {"America/St_Johns", "Europe/London", "2026-01-15 12:00", "−3:30"},
        {"America/New_York", "Europe/London", "2026-01-15 12:00", "−5h"},
        {"America/New_York", "Europe/London", "2026-03-15 12:00", "−4h"},
        {"Asia/Tokyo", "Europe/London", "2026-07-15 12:00", "+8h"},
        {"Europe/Lisbon", "Europe/London", "2026-07-15 12:00", ""},
        {"Pacific/Kiritimati", "Pacific/Niue", "2026-07-15 12:00", "+25h"},
        {"Europe/London", "Asia/Kolkata", "2026-07-15 12:00", "−4:30"},
        {"Australia/Eucla", "UTC", "2026-07-15 12:00", "+8:45"},
        {"America/St_Johns", "America/Halifax", "2026-07-15 12:00", "+0:30"},
        {"Africa/Monrovia", "UTC", "1971-06-01 12:00", "−0:44"},
    };
    for (const auto& [row, home, at, text] : cases)
        EXPECT_EQ(offsetText(rowIn(row), rowIn(home), utc(at)), text) << row << " from " << home;
}

TEST(Texts, HeadTheHours) {
    const struct {
        int hour;
        const char* h24;
        const char* h12;
    } cases[] = {
        {0, "0", "12a"},
        {9, "9", "9a"},
        {11, "11", "11a"},
        {12, "12", "12p"},
        {17, "17", "5p"},
        {23, "23", "11p"},
        {std::numeric_limits<int>::max(), "2147483647", "7p"},
    };
    for (const auto& [hour, in24, in12] : cases) {
        EXPECT_EQ(hourText(hour, h24), in24);
        EXPECT_EQ(hourText(hour, HourFormat::utc), in24);
        EXPECT_EQ(hourText(hour, h12), in12);
    }
}

TEST(Texts, ListEveryRow) {
    const Instant at = utc("2025-03-04 14:00");
    const std::vector<Row> none;
    const std::vector<Row> one{rowIn("Europe/London", "London")};
    const std::vector<Row> rows{
        rowIn("Europe/London", "London"), rowIn("America/New_York", "New York"),
        rowIn("Asia/Kolkata", "Pune", {.abbr = "ist"}), rowIn("Asia/Dubai", "Dubai", {.abbr = ""})};

    EXPECT_EQ(rangeText({at, 45}, rows[1], h24), "09:00–09:45");
    EXPECT_EQ(rangeText({at, 180}, rows[1], h12), "9:00 AM–12:00 PM");
    EXPECT_EQ(rangeText({utc("2025-03-04 23:30"), 60}, one[0], h24), "23:30–00:30");

    EXPECT_EQ(summaryText(at, none, h24), "");
    EXPECT_EQ(summaryText(at, one, h24), "London 14:00");
    EXPECT_EQ(summaryText(at, rows, h12),
              "London 2:00 PM  ·  New York 9:00 AM  ·  Pune 7:30 PM  ·  Dubai 6:00 PM");

    const std::vector<Row> turning{rowIn("Africa/Cairo", "القاهرة")};
    EXPECT_EQ(summaryText(at, turning, h12), "\u2068القاهرة\u2069 4:00 PM");
    EXPECT_EQ(plainText(at, turning, h12), "القاهرة 4:00 PM Tue 4 Mar (EET)") << "never copied";

    EXPECT_EQ(plainText(at, none, h24), "");
    EXPECT_EQ(plainText(at, rows, h24),
              "London 14:00 Tue 4 Mar (GMT)\n"
              "New York 09:00 Tue 4 Mar (EST)\n"
              "Pune 19:30 Tue 4 Mar (ist)\n"
              "Dubai 18:00 Tue 4 Mar (GMT+4)");

    EXPECT_EQ(emailText({at, 30}, {rows[0], rows[1]}, h24),
              "Proposed time (30 minutes):\n"
              "London: 14:00–14:30 GMT, Tue 4 Mar\n"
              "New York: 09:00–09:30 EST, Tue 4 Mar");
    EXPECT_EQ(emailText({at, 60}, none, h24), "Proposed time (1 hour):\n");
    EXPECT_EQ(emailText({utc("2025-03-04 23:30"), 60}, one, h24),
              "Proposed time (1 hour):\nLondon: 23:30–00:30 GMT, Tue 4 Mar")
        << "the date is that of the start";
    EXPECT_EQ(emailText({utc("2025-03-30 00:30"), 60}, one, h24),
              "Proposed time (1 hour):\nLondon: 00:30–02:30 GMT, Sun 30 Mar")
        << "and so is the abbreviation";
}

TEST(HourFormats, AreReadByTheirRawTexts) {
    for (const HourFormat format : allHourFormats)
        EXPECT_EQ(hourFormat(rawValue(format)), format);
    for (const char* other : {"", "24H", "24h ", "UTC", "h12"})
        EXPECT_EQ(hourFormat(other), std::nullopt) << other;
    EXPECT_EQ(next(h24), h12);
    EXPECT_EQ(next(h12), HourFormat::utc);
    EXPECT_EQ(next(HourFormat::utc), h24);
}

}  // namespace
}  // namespace noonward
