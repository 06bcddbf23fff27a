#include "app/Demonstration.h"

#include <gtest/gtest.h>

#include <map>

namespace noonward {
namespace {

using Variables = std::map<std::string, std::string>;

std::optional<Demonstration> from(const Variables& variables) {
    return Demonstration::from([&](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(Demonstration, IsAskedForByAnyOfThePictures) {
    EXPECT_FALSE(from({}));
    EXPECT_FALSE(from({{"NOONWARD_TIME", "9am"}, {"NOONWARD_LIGHT", "1"}}));
    for (const char* name :
         {"NOONWARD_SNAPSHOT", "NOONWARD_SETTINGS", "NOONWARD_WELCOME", "NOONWARD_NOTCH"}) {
        EXPECT_TRUE(from({{name, ""}})) << name;
    }
}

TEST(Demonstration, ReadsWholeNumbersOnly) {
    const std::pair<const char*, std::optional<int>> cases[] = {
        {"7", 7},
        {"+7", 7},
        {"-7", -7},
        {"007", 7},
        {"0", 0},
        {"7x", {}},
        {"", {}},
        {"+", {}},
        {"-", {}},
        {"+-7", {}},
        {" 7", {}},
        {"7 ", {}},
        {"7.0", {}},
        {"0x7", {}},
        {"++7", {}},
        {"2147483647", 2147483647},
        {"2147483648", {}},
        {"-2147483648", -2147483647 - 1},
        {"99999999999999999999", {}},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(parseWhole(text), value) << text;
}

TEST(Demonstration, ReadsItsVariables) {
    const auto read = from({{"NOONWARD_SNAPSHOT", "/tmp/a.png"},
                            {"NOONWARD_TRAVEL", "here"},
                            {"NOONWARD_HIDE", ",,LonDon,,New York,"},
                            {"NOONWARD_COL", "+7"},
                            {"NOONWARD_MINUTES", "7h"},
                            {"NOONWARD_FORMAT", "12H"},
                            {"NOONWARD_QUERY", "são"},
                            {"NOONWARD_EDIT", "+2"},
                            {"NOONWARD_ROLL", ""}});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->ribbon, "/tmp/a.png");
    EXPECT_EQ(read->travel, Demonstration::TravelState::here);
    EXPECT_EQ(read->hide, (std::vector<std::string>{"LonDon", "New York"}));
    EXPECT_EQ(read->column, 7);
    EXPECT_EQ(read->minutes, std::nullopt);
    EXPECT_EQ(read->format, std::nullopt) << "raw values are matched exactly";
    EXPECT_TRUE(read->roll);
    EXPECT_FALSE(read->five);
    EXPECT_EQ(read->query, "são");
    EXPECT_EQ(read->edit, 2);
    EXPECT_EQ(from({{"NOONWARD_NOTCH", ""}, {"NOONWARD_TRAVEL", "ask"}})->travel,
              Demonstration::TravelState::ask);
    EXPECT_EQ(from({{"NOONWARD_NOTCH", ""}, {"NOONWARD_TRAVEL", ""}})->travel,
              Demonstration::TravelState::home);
}

}  // namespace
}  // namespace noonward
