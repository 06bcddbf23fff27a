#include "base/Unicode.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace noonward::unicode {
namespace {

using namespace std::string_view_literals;
using std::string_view;

TEST(Unicode, ChecksUtf8) {
    const std::pair<string_view, bool> rows[] = {
        {"", true},
        {"São Paulo"sv, true},
        {"a\0b"sv, true},
        {"\xF0\x9F\x95\x9B"sv, true},  // a clock face
        {"\xC3"sv, false},             // cut short
        {"\xC3(", false},              // trail byte missing
        {"\xA3", false},               // trail byte alone
        {"\xC0\x80", false},           // overlong NUL
        {"\xED\xA0\x80", false},       // surrogate
        {"\xF4\x90\x80\x80", false},   // beyond U+10FFFF
        {"\xFF\xFE", false},
    };
    for (const auto& [text, valid] : rows)
        EXPECT_EQ(isValidUtf8(text), valid) << text;
}

TEST(Unicode, MapsCase) {
    const struct {
        string_view text, lower, upper;
    } rows[] = {
        {"", "", ""},
        {"New York 7:30", "new york 7:30", "NEW YORK 7:30"},
        {"MALÉ", "malé", "MALÉ"},
        {"São", "são", "SÃO"},
        {"Straße", "straße", "STRASSE"},
        {"IıİI", "iıi̇i", "IIİI"},  // the root locale's, whatever the machine's is
        {"ΟΔΟΣ", "οδος", "ΟΔΟΣ"},  // final sigma
        {"a\0É"sv, "a\0é"sv, "A\0É"sv},
        {"A\xC3", "a\xC3", "A\xC3"},
        {"\xFFÉ", "\xFFé", "\xFFÉ"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(lowercased(row.text), row.lower) << row.text;
        EXPECT_EQ(uppercased(row.text), row.upper) << row.text;
    }
}

TEST(Unicode, FoldsCaseAndDiacritics) {
    const std::pair<string_view, string_view> rows[] = {
        {"", ""},
        {"NEW York", "new york"},
        {"São Paulo", "sao paulo"},
        {"Sa\u0303o Paulo", "sao paulo"},  // decomposed
        {"Türkiye", "turkiye"},
        {"İstanbul", "istanbul"},
        {"Diyarbakır", "diyarbakır"},  // a dotless i is a letter, not an i with less
        {"Gießen", "giessen"},
        {"ẞ", "ss"},
        {"Ὀδυσσεύς", "οδυσσευσ"},
        {"ᾼ", "α"},
        {"Ǖ", "u"},
        {"Malé", "male"},
        {"\u202EMalé\u202C", "\u202Emale\u202C"},  // bidirectional controls are no diacritics
        {"é\0É"sv, "e\0e"sv},
        {"é\xC3", "e\uFFFD"},
        {"\u0301", ""},
    };
    for (const auto& [text, result] : rows)
        EXPECT_EQ(folded(text), result) << text;
}

TEST(Unicode, ComparesIgnoringCaseOnly) {
    const struct {
        string_view a, b;
        bool equal;
    } rows[] = {
        {"", "", true},
        {"London", "lonDON", true},
        {"London", "London ", false},
        {"Malé", "MALÉ", true},
        {"Malé", "Male", false},
        {"Straße", "STRASSE", true},
        {"ΟΔΟΣ", "οδος", true},
        {"I", "ı", false},
        {"Å", "å", true},
        {"a\0b"sv, "A\0B"sv, true},
        {"a\0b"sv, "A\0C"sv, false},
        {"[", "{", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(equalIgnoringCase(row.a, row.b), row.equal) << row.a << ' ' << row.b;
        EXPECT_EQ(equalIgnoringCase(row.b, row.a), row.equal) << row.b << ' ' << row.a;
        EXPECT_EQ(caseFolded(row.a) == caseFolded(row.b), row.equal) << row.a << ' ' << row.b;
    }
}

TEST(Unicode, Trims) {
    const struct {
        string_view text, space, punctuation, both;
    } rows[] = {
        {"", "", "", ""},
        {" \t\r\n\u00A0\u3000", "", " \t\r\n\u00A0\u3000", ""},
        {"\u2003 a b \u2028", "a b", "\u2003 a b \u2028", "a b"},
        {"tue,", "tue,", "tue", "tue"},
        {"«¿tue?!»", "«¿tue?!»", "tue", "tue"},
        {" (new york) ", "(new york)", " (new york) ", "new york"},
        {"., !", "., !", " ", ""},
        {"$+1=", "$+1=", "$+1=", "$+1="},  // symbols are no punctuation
        {"\u200Ba\u200B", "\u200Ba\u200B", "\u200Ba\u200B", "\u200Ba\u200B"},
        {" \xC3 ", "\xC3", " \xC3 ", "\xC3"},
        {" \x80\x80", "\x80\x80", " \x80\x80", "\x80\x80"},
        {" \0 "sv, "\0"sv, " \0 "sv, "\0"sv},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(trimmed(row.text), row.space) << row.text;
        EXPECT_EQ(trimmedPunctuation(row.text), row.punctuation) << row.text;
        EXPECT_EQ(trimmedSpaceAndPunctuation(row.text), row.both) << row.text;
    }
}

TEST(Unicode, CountsCharactersAsAReaderDoes) {
    const struct {
        string_view text;
        std::size_t count;
        string_view head;
    } rows[] = {
        {"", 3, ""},
        {"London", 0, ""},
        {"London", 3, "Lon"},
        {"Lo", 3, "Lo"},
        {"Malé", 4, "Malé"},
        {"Ma\u0301le", 2, "Ma\u0301"},
        {"ab\u0301c", 2, "ab\u0301"},
        {"🇮🇳🇬🇧", 1, "🇮🇳"},
        {"👩‍👩‍👧x", 1, "👩‍👩‍👧"},
        {"\r\nx", 1, "\r\n"},
        {"각나", 1, "각"},
        {"a\0bc"sv, 3, "a\0b"sv},
        {"\xC3\xC3z", 2, "\xC3\xC3"},
        {"\u0301\u0301", 1, "\u0301\u0301"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(firstCharacters(row.text, row.count), row.head) << row.text;
}

TEST(Unicode, KnowsUpperCaseLetters) {
    for (const string_view text : {"A", "Éa", "İ", "Ω", "Ⓐ"})
        EXPECT_TRUE(startsUppercase(text)) << text;
    for (const string_view text : {"", "a", "é", "ı", "1", " A", "ǅ", "東", "\xC3", "\0A"}) {
        EXPECT_FALSE(startsUppercase(text)) << text;
    }
}

TEST(Unicode, KnowsSingleNumerals) {
    for (const string_view text : {"0", "7", "½", "४", "四", "Ⅻ", "㊈", "𝟠", "7\u0301"})
        EXPECT_TRUE(isNumeral(text)) << text;
    for (const string_view text : {"", "12", "7 ", " 7", "h", "é", "\xC3", "\xF0\x9D\x9F", "\x1B"})
        EXPECT_FALSE(isNumeral(text)) << text;
}

TEST(Unicode, BearsLongAndBrokenText) {
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += static_cast<char>(i * 37 + i / 256);
    for (const std::string& hostile :
         {text, std::string(100'000, '\xCC'), std::string(99'999, ' ')}) {
        EXPECT_EQ(lowercased(lowercased(hostile)), lowercased(hostile));
        EXPECT_EQ(uppercased(uppercased(hostile)), uppercased(hostile));
        EXPECT_TRUE(isValidUtf8(folded(hostile)));
        EXPECT_TRUE(equalIgnoringCase(hostile, hostile));
        EXPECT_LE(trimmedSpaceAndPunctuation(hostile).size(), hostile.size());
        EXPECT_LE(firstCharacters(hostile, 50'000).size(), hostile.size());
    }
}

}  // namespace
}  // namespace noonward::unicode
