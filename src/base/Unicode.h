#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text helpers by the Unicode standard, independent of the machine's locale. All texts are UTF-8.
/// Ill-formed bytes count as U+FFFD, which has no case and is neither space nor punctuation.
namespace noonward::unicode {

bool isValidUtf8(std::string_view text);

/// Full case mappings of the root locale. Ill-formed bytes stay as they are.
std::string lowercased(std::string_view text);
std::string uppercased(std::string_view text);

/// The text without case and diacritics, for matching what a person types: "São Paulo" gives
/// "sao paulo", "Türkiye" gives "turkiye".
std::string folded(std::string_view text);

/// The text without case, diacritics kept (default case folding): equal for texts that
/// `equalIgnoringCase`.
std::string caseFolded(std::string_view text);

/// Whether two labels are the same for a reader who ignores case (default case folding).
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Without White_Space characters (new lines among them) at both ends.
std::string_view trimmed(std::string_view text);

/// Without punctuation (general categories P*) at both ends.
std::string_view trimmedPunctuation(std::string_view text);

/// Without white space, new lines and punctuation at both ends.
std::string_view trimmedSpaceAndPunctuation(std::string_view text);

/// The first `count` characters as a reader sees them (extended grapheme clusters, UAX #29).
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Whether the first character has the Uppercase property; false for empty text.
bool startsUppercase(std::string_view text);

/// A name as it is painted within a line of other words: one with letters that are written from
/// right to left is isolated (UAX #9, FSI … PDI), so that it turns nothing around it. Controls of
/// direction in the name itself are left out. Never for what is stored or copied.
std::string isolated(std::string_view name);

/// Whether the text is exactly one character as a reader sees it, one with a numeric value
/// (property Numeric_Type, UAX #44): "7", "½", "४".
bool isNumeral(std::string_view text);

}  // namespace noonward::unicode
