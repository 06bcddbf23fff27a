#include "reference/TimeParser.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/Instants.h"

namespace noonward {
namespace {

using namespace std::string_literals;
using test::utc;
using test::zoneNamed;

/// London at home, on Tuesday 9 June 2026 at 10:00; the strip shows the day.
TimeContext london() {
    return {.now = utc("2026-06-09 09:00"),
            .dayStart = utc("2026-06-08 23:00"),
            .homeZone = zoneNamed("Europe/London"),
            .rows = {{"London", "LON", zoneNamed("Europe/London")},
                     {"New York", "NYC", zoneNamed("America/New_York")},
                     {"Singapore", "SIN", zoneNamed("Asia/Singapore")}}};
}

/// The instant in UTC, "Tue 2026-06-09 13:00:00"; empty for none.
std::string parsed(std::string_view text, const TimeContext& context) {
    const auto at = TimeParser::parse(text, context);
    return at ? test::wall("UTC", *at) : "";
}

std::string zoneOf(std::string_view phrase, const TimeContext& context) {
    const auto zone = TimeParser::zone(phrase, context);
    return zone ? zone->identifier() : "";
}

TEST(TimeParser, ReadsTimes) {
    // What home's clock shows at the time that is read; nothing is read at all in the last rows.
    const struct {
        const char* shown;
        std::vector<const char*> texts;
    } rows[] = {
        {"00:00", {"0", "00", "000", "12am", "12 a.m."}},
        {"00:30", {"0:30", "030", "1230am"}},
        {"01:00", {"1am", "01a"}},
        {"07:00", {"7", "07", "7.", "7:", "7,", " \t7 ", "7 a", "7   am"}},
        {"07:30", {"730", "0730", "7h30", "7.30", "7:30", "7:30A.M."}},
        {"07:59", {"7:59", "759"}},
        {"10:00", {"10"}},
        {"12:00", {"12", "12pm"}},
        {"13:30", {"130", "130 pm", "1330"}},
        {"15:00", {"3", "03", "15", "3pm"}},
        {"18:15", {"6:15", "1815", "615pm"}},
        {"21:00", {"9p", "9 P.M.", "9PM"}},
        {"23:00", {"23", "11pm"}},
        // what is left names a place, by its beginning: Mumbai, Amman and Hyderabad
        {"04:30", {"9a.m"}},
        {"07:00", {"9am am"}},
        {"02:30", {"7h"}},
        // hours and minutes that no clock has
        {"", {"24", "99", "13pm", "0am", "0pm", "7:60", "7:75", "799", "2400"}},
        // times that end too soon, or not
        {"", {"7:5", "7 30", "7::30", "7:300", "7: 30", "7:30:00", "12345", "7\u00A030"}},
        {"", {"12 apm", "9amx", "9pm2", "9.pm"}},
        // no times
        {"", {"", "  ", "tuesday", "am", "-7", "+7", "x7", "(7)", "７", "٧"}},
    };
    for (const auto& row : rows) {
        for (const char* typed : row.texts) {
            const auto at = TimeParser::parse(typed, london());
            const std::string shown = at ? test::wall("Europe/London", *at) : "";
            EXPECT_EQ(shown.empty() ? shown : shown.substr(4, 16),
                      *row.shown ? "2026-06-09 " + std::string(row.shown) : "")
                << typed;
        }
    }
}

TEST(TimeParser, ReadsPlacesAndDays) {
    const std::pair<const char*, const char*> rows[] = {
        {"7:30am NY tue", "Tue 2026-06-09 11:30:00"},
        {"6:15 India", "Tue 2026-06-09 12:45:00"},
        {"18:00 London", "Tue 2026-06-09 17:00:00"},
        {"9am in new york time", "Tue 2026-06-09 13:00:00"},
        {"9am nyc", "Tue 2026-06-09 13:00:00"},
        {"9 a nyc", "Tue 2026-06-09 13:00:00"},
        {"9am est", "Tue 2026-06-09 13:00:00"},
        {"1830z", "Tue 2026-06-09 18:30:00"},
        {"18:30 Z", "Tue 2026-06-09 18:30:00"},
        {"9am@nyc", "Tue 2026-06-09 13:00:00"},
        {"9am, for nyc local!", "Tue 2026-06-09 13:00:00"},
        {"9 sin", "Tue 2026-06-09 01:00:00"},
        {"2am sin", "Tue 2026-06-09 18:00:00"},  // Wednesday there, within the shown day
        {"8:00 tokyo", "Mon 2026-06-08 23:00:00"},
        {"7:59 tokyo", "Tue 2026-06-09 22:59:00"},
        {"9am atlantis", ""},
        {"9am nyc atlantis", ""},
        // days: counted from today in the place, and not bound to the shown day
        {"tomorrow 9", "Wed 2026-06-10 08:00:00"},
        {"9 tmrw", "Wed 2026-06-10 08:00:00"},
        {"tmr, 9", "Wed 2026-06-10 08:00:00"},
        {"9 tomorow", "Wed 2026-06-10 08:00:00"},
        {"9 (tommorow)", "Wed 2026-06-10 08:00:00"},
        {"today 9", "Tue 2026-06-09 08:00:00"},
        {"tonight 8pm", "Tue 2026-06-09 19:00:00"},
        {"9 wed nyc", "Wed 2026-06-10 13:00:00"},
        {"9 nyc on Weds.", "Wed 2026-06-10 13:00:00"},
        {"on mon 9", "Mon 2026-06-15 08:00:00"},
        {"tue 9", "Tue 2026-06-09 08:00:00"},
        {"next tue 9am nyc", "Tue 2026-06-16 13:00:00"},
        {"9am next, tuesday", "Tue 2026-06-16 08:00:00"},
        {"tue 9 next", "Tue 2026-06-16 08:00:00"},
        {"next wed 9", "Wed 2026-06-10 08:00:00"},
        {"next 9am", "Tue 2026-06-09 08:00:00"},
        {"next tomorrow 9", "Wed 2026-06-10 08:00:00"},
        {"mon fri 9", "Fri 2026-06-12 08:00:00"},
        {"tomorrow fri 9", "Fri 2026-06-12 08:00:00"},
        {"fri tomorrow 9", "Wed 2026-06-10 08:00:00"},
        {"9 - nyc", "Tue 2026-06-09 13:00:00"},
        {"tue-9", ""},
        {"9 tueday", ""},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(parsed(text, london()), expected) << text;

    TimeContext late = london();
    late.now = utc("2026-06-10 02:00");  // Wednesday at home, still Tuesday in New York
    EXPECT_EQ(parsed("tomorrow 9am nyc", late), "Wed 2026-06-10 13:00:00");
    EXPECT_EQ(parsed("tomorrow 9am", late), "Thu 2026-06-11 08:00:00");
    EXPECT_EQ(parsed("next tue 9am nyc", late), "Tue 2026-06-16 13:00:00");
    EXPECT_EQ(parsed("next tue 9am", late), "Tue 2026-06-16 08:00:00");
}

TEST(TimeParser, ResolvesPlacesInOrder) {
    TimeContext context = london();
    context.rows.push_back({"Sin City", "EST", zoneNamed("America/Los_Angeles")});
    context.rows.push_back({"Zürich", "ZRH", zoneNamed("Europe/Zurich")});
    const std::pair<const char*, const char*> rows[] = {
        {"", "Europe/London"},
        {" .,!\n", "Europe/London"},
        {"in ", "Asia/Kolkata"},  // no preposition any more, but the beginning of India
        {"lon", "Europe/London"},
        {"l", "Europe/London"},
        {"n", "America/New_York"},
        {"sin", "Asia/Singapore"},  // a short label, before a later row's beginning
        {"sin c", "America/Los_Angeles"},
        {"est", "America/Los_Angeles"},  // rows before abbreviations
        {"zürich", "Europe/Zurich"},
        {"zrh", "Europe/Zurich"},
        {"et", "America/New_York"},  // abbreviations before short codes and cities
        {"pt", "America/Los_Angeles"},
        {"ist", "Asia/Kolkata"},  // Istanbul's short code
        {"utc", "UTC"},
        {"gmt", "Europe/London"},
        {"dc", "America/New_York"},  // a short code
        {"la", "America/Los_Angeles"},
        {"goi", "Asia/Kolkata"},
        {"bengaluru", "Asia/Kolkata"},  // the search
        {"sao paulo", "America/Sao_Paulo"},
        {"são paulo", "America/Sao_Paulo"},
        {"germany", "Europe/Berlin"},
        {"reykjavik time", "Atlantic/Reykjavik"},
        {"in at tokyo", "Asia/Tokyo"},
        {"in for at tokyo local time", "Asia/Tokyo"},
        {"at in tokyo", ""},  // each prefix once, in their order
        {"tokyo time local", ""},
        {"  tokyo  ", "Asia/Tokyo"},
        {"«tokyo»", "Asia/Tokyo"},
        {"asia/tokyo", ""},
        {"time", ""},
        {" time", ""},
        {"new  york", ""},
    };
    for (const auto& [phrase, zone] : rows)
        EXPECT_EQ(zoneOf(phrase, context), zone) << phrase;
}

TEST(TimeParser, KnowsEveryAbbreviation) {
    const struct {
        const char* zone;
        std::vector<const char*> words;
    } rows[] = {
        {"Asia/Kolkata", {"ist", "india"}},
        {"America/New_York", {"est", "edt", "et", "eastern"}},
        {"America/Chicago", {"cst", "cdt", "ct", "central"}},
        {"America/Denver", {"mst", "mdt", "mt", "mountain"}},
        {"America/Los_Angeles", {"pst", "pdt", "pt", "pacific"}},
        {"Australia/Sydney", {"aest", "aedt"}},
        {"Europe/London", {"gmt", "bst", "uk"}},
        {"Europe/Paris", {"cet", "cest"}},
        {"Asia/Singapore", {"sgt"}},
        {"Asia/Hong_Kong", {"hkt"}},
        {"Asia/Tokyo", {"jst"}},
        {"Asia/Seoul", {"kst"}},
        {"Asia/Dubai", {"gst"}},
        {"UTC", {"utc", "z"}},
    };
    TimeContext context = london();
    context.rows.clear();
    for (const auto& row : rows) {
        for (const char* word : row.words)
            EXPECT_EQ(zoneOf(word, context), row.zone) << word;
    }
}

TEST(TimeParser, StaysWithinTheShownDay) {
    TimeContext context = london();
    // The clocks go forward at 01:00 on the shown day, which ends at 01:00 on the next.
    context.dayStart = utc("2026-03-29 00:00");
    context.now = utc("2026-03-20 12:00");
    context.dayOffset = 9;
    EXPECT_EQ(parsed("0", context), "Sun 2026-03-29 00:00:00");
    EXPECT_EQ(parsed("1am", context), "Sun 2026-03-29 01:00:00") << "skipped, so 02:00";
    EXPECT_EQ(parsed("11pm", context), "Sun 2026-03-29 22:00:00");
    EXPECT_EQ(parsed("12am", context), "Sun 2026-03-29 00:00:00");
    context.rolling = true;
    EXPECT_EQ(parsed("11pm", context), "Sun 2026-03-29 22:00:00") << "another day is shown";

    context.now = utc("2026-03-28 23:30");
    EXPECT_EQ(parsed("9am sunday", context), "Sun 2026-03-29 08:00:00") << "a day is no 24 hours";

    // They go back on this one, and its 25th hour is not shown.
    context.dayStart = utc("2026-10-24 23:00");
    EXPECT_EQ(parsed("1:30am", context), "Sun 2026-10-25 00:30:00") << "the first of two";
    EXPECT_EQ(parsed("10:59pm", context), "Sun 2026-10-25 22:59:00");
    EXPECT_EQ(parsed("11pm", context), "");
    EXPECT_EQ(parsed("11pm nyc", context), "Sun 2026-10-25 03:00:00");

    // No midnight at home: the day begins at 01:00.
    context.homeZone = zoneNamed("Africa/Cairo");
    context.dayStart = utc("2026-04-23 22:00");
    EXPECT_EQ(parsed("12am", context), "Thu 2026-04-23 22:00:00");
}

TEST(TimeParser, RollsToTheNextSuchTime) {
    TimeContext context = london();
    context.rolling = true;
    context.dayStart = utc("2026-06-08 21:00");
    EXPECT_EQ(parsed("9am", context), "Wed 2026-06-10 08:00:00") << "passed today";
    EXPECT_EQ(parsed("10am", context), "Wed 2026-06-10 09:00:00") << "now is not later than now";
    EXPECT_EQ(parsed("10:01", context), "Tue 2026-06-09 09:01:00");
    EXPECT_EQ(parsed("1am sin", context), "Tue 2026-06-09 17:00:00");
    EXPECT_EQ(parsed("5am nyc", context), "Wed 2026-06-10 09:00:00");
    context.dayOffset = 1;
    context.dayStart = utc("2026-06-09 21:00");
    EXPECT_EQ(parsed("9am", context), "Wed 2026-06-10 08:00:00");
    EXPECT_EQ(parsed("10:30pm", context), "Tue 2026-06-09 21:30:00");
}

TEST(TimeParser, BearsAnyTextAndAnyDay) {
    std::string marks = "9";
    for (int i = 0; i < 50'000; ++i)
        marks += "\u0301";
    const std::string texts[] = {
        std::string(100'000, '9'),
        std::string(100'000, ' ') + "9",
        marks,
        "9 " + std::string(255, 'x'),
        "\u202E9am nyc\u202C",
        "9\0am"s,
        "9am \0nyc"s,
        "\xFF"
        "9",
        "9am \xC3",
        "9\xED\xA0\x80",
        "9am nyc\nlondon\nx",
    };
    for (const std::string& text : texts)
        EXPECT_EQ(parsed(text, london()), "") << text.size();
    EXPECT_NE(parsed("9" + std::string(255, ' '), london()), "") << "256 characters are read";
    EXPECT_EQ(parsed("9" + std::string(256, ' '), london()), "") << "257 are not";
    std::string wide = "9";
    for (int i = 0; i < 255; ++i)
        wide += "\u3000";
    EXPECT_NE(parsed(wide, london()), "") << "256 characters in 766 bytes";

    for (const Instant extreme : {Instant::min(), Instant::max()}) {
        TimeContext context = london();
        context.now = context.dayStart = extreme;
        EXPECT_EQ(parsed("9", context), "");
        TimeParser::parse("9 tomorrow", context);
        context.rolling = true;
        TimeParser::parse("9", context);
    }
}

}  // namespace
}  // namespace noonward
