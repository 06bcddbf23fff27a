#include "config/ConfigJson.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace noonward {
namespace {

TimeZone kolkata() {
    return TimeZone::find("Asia/Kolkata").value();
}

Config fullConfig() {
    Config config;
    config.hourFormat = "12h";
    config.homeZones = {"Europe/London", "Europe/Jersey"};
    config.favourites = {"London", "São Paulo"};
    config.clickSound = false;
    config.appearance = "dark";
    config.meetingMinutes = 45;
    config.welcomed = true;
    config.travel = Travel{"Asia/Tokyo", true};
    config.rolling = true;
    config.places = {
        {.label = "London", .shortName = "LON", .zone = "", .home = true},
        {.label = "São Paulo",
         .shortName = "SP",
         .zone = "America/Sao_Paulo",
         .abbr = "BRT",
         .work = {{8.5, 17.25}},
         .workdays = {{2, 3, 4}},
         .holidays = false,
         .daysOff = {{"2026-12-24", "2026-12-31"}}},
    };
    return config;
}

TEST(ConfigJsonTest, WritesWhatReadersOfTheFileRelyOn) {
    EXPECT_EQ(encodeConfig(fullConfig()), R"({
  "appearance": "dark",
  "clickSound": false,
  "favourites": [
    "London",
    "São Paulo"
  ],
  "homeZones": [
    "Europe/London",
    "Europe/Jersey"
  ],
  "hourFormat": "12h",
  "meetingMinutes": 45,
  "places": [
    {
      "home": true,
      "label": "London",
      "short": "LON",
      "zone": ""
    },
    {
      "abbr": "BRT",
      "daysOff": [
        "2026-12-24",
        "2026-12-31"
      ],
      "holidays": false,
      "label": "São Paulo",
      "short": "SP",
      "work": [
        8.5,
        17.25
      ],
      "workdays": [
        2,
        3,
        4
      ],
      "zone": "America/Sao_Paulo"
    }
  ],
  "rolling": true,
  "travel": {
    "here": true,
    "zone": "Asia/Tokyo"
  },
  "welcomed": true
}
)");
}

TEST(ConfigJsonTest, ReadsBackWhatItWrote) {
    Config bare;
    Config odd = fullConfig();
    odd.hourFormat = std::string("\0\x1f\"\\/\u2028\U0001F30D", 12);
    odd.meetingMinutes = -2147483647 - 1;
    odd.places[0].work = {{0.1, 1e308, 8, -7.5, 5e-324}};
    odd.places[0].workdays.emplace();
    for (const Config& config : {bare, fullConfig(), odd}) {
        const auto decoded = decodeConfig(encodeConfig(config), kolkata());
        ASSERT_TRUE(decoded);
        EXPECT_EQ(decoded->config, config);
        EXPECT_TRUE(decoded->hasAllKeys);
    }
}

TEST(ConfigJsonTest, WritesALegibleFileWhateverTheValues) {
    Config config = fullConfig();
    config.places[0].label = "caf\xE9 \xF0\x9F";
    config.places[0].work = {{std::nan(""), 18}};
    config.places[1].work = {{8, INFINITY}};
    const auto decoded = decodeConfig(encodeConfig(config), kolkata());
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->config.places[0].label, "caf\uFFFD \uFFFD");
    EXPECT_FALSE(decoded->config.places[0].work);
    EXPECT_FALSE(decoded->config.places[1].work);
}

TEST(ConfigJsonTest, TakesValuesOfTheRightTypeOnly) {
    const std::string place = R"("label":"L","short":"S","zone":"Z")";
    const auto withPlace = [&](const std::string& more) {
        return R"({"places":[{)" + place + "," + more + "}]}";
    };
    const struct {
        std::string text;
        bool taken;
    } cases[] = {
        {"{}", true},
        {" {}\r\n\t", true},
        {"\xEF\xBB\xBF{}", true},  // a byte order mark, as editors leave it
        {R"({"unknown":[{"a":null}]})", true},
        {"", false},
        {"null", false},
        {"[]", false},
        {"\"text\"", false},
        {"{", false},
        {"{}}", false},
        {"{},", false},
        {R"({"rolling":true,})", false},
        {"\xEF\xBB{}", false},
        {std::string("{}\0", 3), false},
        {std::string("\xFF\xFE{\0}\0", 6), false},
        {"{\"hourFormat\":\"caf\xE9\"}", false},
        {"{\"hourFormat\":\"\xED\xA0\x80\"}", false},
        {R"({"hourFormat":"\ud800"})", false},
        {R"({"meetingMinutes":60.0})", true},
        {R"({"meetingMinutes":6e1})", true},
        {R"({"meetingMinutes":-0})", true},
        {R"({"meetingMinutes":60.5})", false},
        {R"({"meetingMinutes":1e300})", false},
        {R"({"meetingMinutes":2147483648})", false},
        {R"({"meetingMinutes":99999999999999999999999})", false},
        {R"({"meetingMinutes":1e999})", false},
        {R"({"meetingMinutes":NaN})", false},
        {R"({"meetingMinutes":true})", false},
        {R"({"meetingMinutes":"60"})", false},
        {R"({"meetingMinutes":[60]})", false},
        {R"({"clickSound":1})", false},
        {R"({"clickSound":"true"})", false},
        {R"({"hourFormat":24})", false},
        {R"({"homeZones":"Europe/London"})", false},
        {R"({"homeZones":["Europe/London",null]})", false},
        {R"({"favourites":{}})", false},
        {R"({"favourites":["A"],"notch":7})", true},  // the old name is not looked at
        {R"({"notch":7})", false},
        {R"({"travel":{"zone":"Asia/Tokyo","here":true}})", true},
        {R"({"travel":{"zone":"Asia/Tokyo"}})", false},
        {R"({"travel":{"zone":null,"here":true}})", false},
        {R"({"travel":{}})", false},
        {R"({"travel":false})", false},
        {R"({"places":{}})", false},
        {R"({"places":[null]})", false},
        {R"({"places":[{"label":"L","short":"S"}]})", false},
        {R"({"places":[{"label":"L","short":null,"zone":""}]})", false},
        {R"({"places":[{"label":7,"short":"S","zone":""}]})", false},
        {withPlace(R"("home":null,"abbr":null,"work":null,"daysOff":null)"), true},
        {withPlace(R"("home":0)"), false},
        {withPlace(R"("work":[1e308,-1e308,0.1,7])"), true},
        {withPlace(R"("work":[8,null])"), false},
        {withPlace(R"("work":8)"), false},
        {withPlace(R"("workdays":[2.0,3])"), true},
        {withPlace(R"("workdays":[2.5])"), false},
        {withPlace(R"("workdays":[1e10])"), false},
        {withPlace(R"("holidays":"no")"), false},
        {withPlace(R"("daysOff":[20260101])"), false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(decodeConfig(test.text, kolkata()).has_value(), test.taken) << test.text;
}

TEST(ConfigJsonTest, MissingKeysAndNullsTakeDefaults) {
    const auto decoded = decodeConfig(
        R"({"hourFormat":null,"favourites":null,"notch":["Z"],"travel":null,"rolling":true,
            "meetingMinutes":15,"meetingMinutes":30})",
        kolkata());
    ASSERT_TRUE(decoded);
    Config expected = Config::defaults(kolkata());
    expected.favourites = {"Z"};
    expected.rolling = true;
    expected.meetingMinutes = 30;
    EXPECT_EQ(decoded->config, expected);
    EXPECT_FALSE(decoded->hasAllKeys);
}

}  // namespace
}  // namespace noonward
