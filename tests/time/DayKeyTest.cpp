#include "time/DayKey.h"

#include <gtest/gtest.h>

#include <string>

namespace noonward {
namespace {

using namespace std::string_view_literals;

TEST(DayKey, ReadsItsTextExactly) {
    for (const auto text :
         {"2026-03-29"sv, "0001-01-01"sv, "9999-12-31"sv, "2026-02-31"sv, "0000-00-00"sv}) {
        const auto key = DayKey::parse(text);
        ASSERT_TRUE(key) << text;
        EXPECT_EQ(key->text(), text);
    }
    for (const auto text : {""sv, "2026-3-29"sv, "2026-03-29 "sv, " 2026-03-29"sv, "2026/03/29"sv,
                            "20260329"sv, "+026-03-29"sv, "-026-03-29"sv, "2026-0x-29"sv,
                            "2026-03-2\0"sv, "2026-03-٢9"sv, "12026-03-29"sv}) {
        EXPECT_FALSE(DayKey::parse(text)) << text;
    }
    EXPECT_EQ(DayKey(987, 6, 5).text(), "0987-06-05");
}

TEST(DayKey, OrdersByDate) {
    EXPECT_LT(DayKey(2025, 12, 31), DayKey(2026, 1, 1));
    EXPECT_LT(DayKey(2026, 1, 31), DayKey(2026, 2, 1));
    EXPECT_LT(DayKey(2026, 2, 1), DayKey(2026, 2, 2));
    EXPECT_EQ(DayKey(2026, 2, 1), *DayKey::parse("2026-02-01"));
}

}  // namespace
}  // namespace noonward
