#include "holidays/CalendarReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <random>
#include <string>

#include "holidays/NaiveCalendar.h"
#include "support/TempFolder.h"

namespace noonward {

static void PrintTo(const Holiday& holiday, std::ostream* out) {
    *out << holiday.name << (holiday.regional ? " in " + *holiday.regional : "");
}

static void PrintTo(const DayKey& day, std::ostream* out) {
    *out << day.text();
}

namespace {

namespace fs = std::filesystem;
using test::NaiveCalendar;
using test::readText;

HolidayDays days(std::vector<HolidayDays::Entry> entries) {
    return HolidayDays(std::move(entries));
}

void expectDays(const HolidayDays& read, const HolidayDays& expected) {
    EXPECT_EQ(std::vector(read.begin(), read.end()), std::vector(expected.begin(), expected.end()));
}

std::string event(const std::string& lines) {
    return "BEGIN:VEVENT\n" + lines + "\nEND:VEVENT\n";
}

/// One on 26 January 2025.
std::string republicDay(const std::string& lines) {
    return event("DTSTART;VALUE=DATE:20250126\nDTEND;VALUE=DATE:20250127\n" + lines);
}

TEST(CalendarReaderTest, TellsHolidaysFromOtherEvents) {
    const DayKey day{2025, 1, 26};
    const struct {
        const char* name;
        std::string text;
        HolidayDays expected;
    } cases[] = {
        {"national", republicDay("SUMMARY:Republic Day\nDESCRIPTION:Public holiday"),
         days({{day, {"Republic Day"}}})},
        {"observance", republicDay("SUMMARY:Republic Day\nDESCRIPTION:Observance"), {}},
        {"no description", republicDay("SUMMARY:Republic Day"), {}},
        {"no summary", republicDay("DESCRIPTION:Public holiday"), {}},
        {"empty summary", republicDay("SUMMARY:\nDESCRIPTION:Public holiday"), days({{day, {""}}})},
        {"summary with a parameter", republicDay("SUMMARY;X=1:A\nDESCRIPTION:Public holiday"), {}},
        {"regional",
         republicDay("SUMMARY:Ugadi (regional holiday)\n"
                     "DESCRIPTION:Public holiday in Karnataka\\, Maharashtra"),
         days({{day, {"Ugadi", "Karnataka, Maharashtra"}}})},
        {"older wording", republicDay("SUMMARY:A\nDESCRIPTION:Public holiday in: Bavaria\\, Hesse"),
         days({{day, {"A"}}})},
        {"region without a name", republicDay("SUMMARY:A\nDESCRIPTION:Public holiday in \\n"),
         days({{day, {"A"}}})},
        {"first line only", republicDay("SUMMARY:A\nDESCRIPTION: Public holiday in B\\nC"),
         days({{day, {"A", "B"}}})},
        {"later lines replace",
         republicDay("SUMMARY:A\nSUMMARY:B\nDESCRIPTION:Observance\n"
                     "DESCRIPTION:Public holidays galore"),
         days({{day, {"B"}}})},
        {"escapes and spaces",
         republicDay("SUMMARY: \\\\, a\\;b\\nc\\, \\q \\\nDESCRIPTION:Public holiday"),
         days({{day, {"\\, a;b\nc, \\q \\"}}})},
        {"mark twice",
         republicDay("SUMMARY:A (regional holiday) B (regional holiday)\n"
                     "DESCRIPTION:Public holiday"),
         days({{day, {"A B"}}})},
        {"runs past its end", republicDay("SUMMARY:A") + "DESCRIPTION:Public holiday",
         days({{day, {"A"}}})},
        {"begins inside a line",
         "SUMMARY:xBEGIN:VEVENTDTSTART:20250126\nSUMMARY:A\nDESCRIPTION:Public holiday in "
         "bBEGIN:VEVENTSUMMARY:B",
         days({{day, {"A", "b"}}})},
        {"begins over a fold",
         "BEGIN:VEV\r\n ENT\r\nDTSTART:20250126\r\nSUMMARY:A\r\nDESCRIPTION:Public holiday",
         days({{day, {"A"}}})},
        {"before any event", "DTSTART:20250126\nSUMMARY:A\nDESCRIPTION:Public holiday", {}},
        {"empty", "", {}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        expectDays(readCalendar(test.text), test.expected);
        expectDays(NaiveCalendar::read(test.text), test.expected);
    }
}

TEST(CalendarReaderTest, SpreadsAnEventOverItsDays) {
    const struct {
        const char* lines;
        const char* first;
        const char* last;
        std::size_t count;
    } cases[] = {
        {"DTSTART;VALUE=DATE:20250126\nDTEND;VALUE=DATE:20250129", "2025-01-26", "2025-01-28", 3},
        {"DTSTART;VALUE=DATE:20250126\nDTEND;VALUE=DATE:20250225", "2025-01-26", "2025-02-08", 14},
        {"DTSTART;VALUE=DATE:20250126", "2025-01-26", "2025-01-26", 1},
        {"DTSTART:20250126T000000Z\nDTEND:20250128T120000Z", "2025-01-26", "2025-01-27", 2},
        {"DTSTART:20250126\nDTEND:20250126", "2025-01-26", "2025-01-26", 1},
        {"DTSTART:20250126\nDTEND:20240101", "2025-01-26", "2025-01-26", 1},
        {"DTSTART:20250126\nDTEND:soon", "2025-01-26", "2025-01-26", 1},
        {"DTSTART::20250126::\nDTEND;X=a:b:20250128", "2025-01-26", "2025-01-27", 2},
        {"DTSTART:20240228\nDTEND:20240302", "2024-02-28", "2024-03-01", 3},
        {"DTSTART:20250230", "2025-03-02", "2025-03-02", 1},
        {"DTSTART:20251399", "2026-04-09", "2026-04-09", 1},
        {"DTSTART:99991225", "9999-12-25", "9999-12-25", 1},
        {"DTSTART:2025012", "", "", 0},
        {"DTSTART:2025+1-1", "", "", 0},
        {"DTSTART:２０２５", "", "", 0},
        {"DTSTART", "", "", 0},
        {"DTSTART:::", "", "", 0},
        {"DTSTART:00000000", "", "", 0},
        {"DTSTART:20250126\nDTSTART:never", "", "", 0},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.lines);
        const auto read = readCalendar(
            event(test.lines + std::string("\nSUMMARY:A\nDESCRIPTION:Public holiday")));
        ASSERT_EQ(read.size(), test.count);
        if (test.count == 0) continue;
        EXPECT_EQ(read.begin()->first.text(), test.first);
        EXPECT_EQ(std::prev(read.end())->first.text(), test.last);
    }
}

TEST(CalendarReaderTest, MergesEventsOfOneDay) {
    const auto national = [](const std::string& name) {
        return republicDay("SUMMARY:" + name + "\nDESCRIPTION:Public holiday");
    };
    const auto regional = [](const std::string& name, const std::string& region) {
        return republicDay("SUMMARY:" + name + "\nDESCRIPTION:Public holiday in " + region);
    };
    const struct {
        std::string text;
        Holiday expected;
    } cases[] = {
        {national("A") + national("B"), {"A · B"}},
        {national("A") + national("B") + national("A"), {"A · B"}},
        {national("Easter Monday") + national("Easter"), {"Easter Monday"}},
        {national("Easter") + national("Easter Monday"), {"Easter · Easter Monday"}},
        {regional("A", "X") + national("B"), {"B"}},
        {national("B") + regional("A", "X"), {"B"}},
        {regional("A", "X") + regional("B", "Y"), {"A · B", "X"}},
        {regional("A", "X") + regional("A", "Y"), {"A", "X"}},
        {regional("A", "X") + national("B") + regional("C", "Z") + national("D"), {"B · D"}},
    };
    for (const auto& test : cases)
        expectDays(readCalendar(test.text), days({{{2025, 1, 26}, test.expected}}));
}

const fs::path data = NOONWARD_TEST_DATA;

TEST(CalendarReaderTest, ReadsFilesWithEitherLineEnd) {
    std::vector<HolidayDays::Entry> expected = {
        {{2025, 1, 20}, {"Founders' Day"}},
        {{2025, 5, 1}, {"Independence Day"}},
        {{2025, 6, 1}, {"River Days"}},
        {{2025, 6, 2}, {"River Days · Queen's Birthday, observed"}},
        {{2025, 6, 3}, {"River Days"}},
    };
    for (int day = 20; day <= 31; ++day)
        expected.push_back({{2025, 12, day}, {"Long Rest"}});
    expected.push_back({{2026, 1, 1}, {"Long Rest"}});
    expected.push_back({{2026, 1, 2}, {"Long Rest"}});
    expectDays(readCalendar(readText(data / "crlf-and-folds.ics")), days(expected));

    expectDays(readCalendar(readText(data / "lf-and-older-wording.ics")),
               days({{{2018, 1, 6}, {"Epiphany"}},
                     {{2018, 6, 1}, {"Corpus, and more", "Zenda, Streslau; Hentzau"}},
                     {{2018, 7, 1}, {"Folded with a"}}}));
}

// Broken, doubled and shuffled texts: never a fault, and what is read by hand is read here.
TEST(CalendarReaderTest, ReadsDamagedTextsAsOneWouldByHand) {
    std::mt19937 random(20260801);
    const auto pick = [&](std::size_t count) { return random() % count; };
    const char* const pieces[] = {"\n",
                                  "\r\n",
                                  "\n ",
                                  "\r\n ",
                                  "\n\t",
                                  ":",
                                  "\\",
                                  "\\n",
                                  "\\,",
                                  "BEGIN:VEVENT",
                                  "DTEND:20250601",
                                  "\r",
                                  " ",
                                  "DESCRIPTION:Public holiday in ",
                                  "SUMMARY:",
                                  "\xC2\xA0",
                                  "\xFF"};
    for (const char* name : {"crlf-and-folds.ics", "lf-and-older-wording.ics"}) {
        const std::string whole = readText(data / name);
        ASSERT_FALSE(whole.empty());
        for (int round = 0; round < 3000; ++round) {
            std::string text = whole;
            for (auto edits = 1 + pick(12); edits > 0; --edits) {
                const auto at = pick(text.size());
                switch (pick(3)) {
                    case 0:
                        text.erase(at, 1 + pick(30));
                        break;
                    case 1:
                        text.insert(at, pieces[pick(std::size(pieces))]);
                        break;
                    default:
                        text.insert(at, text.substr(pick(text.size()), pick(200)));
                }
            }
            ASSERT_EQ(readCalendar(text), NaiveCalendar::read(text)) << text;
        }
    }
}

TEST(CalendarReaderTest, EndsSoonOnAnAttack) {
    const std::string holiday = event(
        "DTSTART:20250101\nDTEND:20250201\nSUMMARY:#\n"
        "DESCRIPTION:Public holiday");
    std::string many;
    for (int i = 0; many.size() < 2'000'000; ++i) {
        many += holiday;
        many.replace(many.rfind('#'), 1, std::to_string(i));
    }
    const auto read = readCalendar(many);
    EXPECT_EQ(read.size(), 14u);
    EXPECT_LT(read.begin()->second.name.size(), 1100u);

    std::string folds = "BEGIN:VEVENT\nSUMMARY:";
    for (int i = 0; i < 2'000'000; ++i)
        folds += "\n ";
    EXPECT_TRUE(readCalendar(folds).empty());
    EXPECT_TRUE(readCalendar(std::string(2'000'000, '\n')).empty());
    EXPECT_TRUE(readCalendar("BEGIN:VEVENT\nSUMMARY:" + std::string(2'000'000, '\\')).empty());
}

TEST(CalendarReaderTest, ReadsRealCalendarsAsOneWouldByHand) {
    const char* folder = std::getenv("NOONWARD_TEST_CALENDARS");
    if (!folder) GTEST_SKIP() << "NOONWARD_TEST_CALENDARS names no folder";
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".ics") continue;
        SCOPED_TRACE(entry.path().filename());
        const std::string text = readText(entry.path());
        expectDays(readCalendar(text), NaiveCalendar::read(text));
    }
    const auto usa = readCalendar(readText(fs::path(folder) / "usa-2026.ics"));
    ASSERT_TRUE(usa.find({2025, 1, 20}));
    EXPECT_EQ(*usa.find({2025, 1, 20}), Holiday{"Martin Luther King Jr. Day"});
    EXPECT_FALSE(usa.find({2021, 3, 14}));  // an observance

    const auto german = readCalendar(readText(fs::path(folder) / "german-2018.ics"));
    ASSERT_TRUE(german.find({2018, 1, 6}));
    EXPECT_FALSE(german.find({2018, 1, 6})->regional);

    EXPECT_TRUE(readCalendar(readText(fs::path(folder) / "indian-2017.ics")).empty());
}

}  // namespace
}  // namespace noonward
