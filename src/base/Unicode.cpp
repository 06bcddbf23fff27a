#include "base/Unicode.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace noonward::unicode {
namespace {

constexpr UChar32 replacementCharacter = 0xFFFD;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char asciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// ICU counts in int32_t; no text of ours comes near, and what lies beyond is cut off.
std::int32_t length(std::string_view text) {
    return static_cast<std::int32_t>(std::min<std::size_t>(text.size(), INT32_MAX / 4));
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), length(text)};
}

template <typename Map>
std::string mapped(std::string_view text, Map map) {
    std::string result;
    result.reserve(text.size());
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    map(piece(text), sink, status);
    return result;
}

// Canonically decomposed, and without the marks that this sets free.
icu::UnicodeString withoutMarks(const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decompose = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status)) return text;
    const icu::UnicodeString decomposed = decompose->normalize(text, status);
    icu::UnicodeString result;
    for (std::int32_t i = 0; i < decomposed.length(); i = decomposed.moveIndex32(i, 1)) {
        const UChar32 c = decomposed.char32At(i);
        if (u_charType(c) != U_NON_SPACING_MARK) result.append(c);
    }
    return result;
}

// Walks in from both ends for as long as the characters there satisfy the predicate.
template <typename Predicate>
std::string_view trimmedWhile(std::string_view text, Predicate drop) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::int32_t size = length(text);
    std::int32_t begin = 0;
    while (begin < size) {
        std::int32_t next = begin;
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(bytes, next, size, c);
        if (!drop(c)) break;
        begin = next;
    }
    std::int32_t end = size;
    while (end > begin) {
        std::int32_t previous = end;
        U8_BACK_1(bytes, begin, previous);
        std::int32_t next = previous;
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(bytes, next, end, c);
        if (!drop(c)) break;
        end = previous;
    }
    return text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

UChar32 firstCodePoint(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::int32_t next = 0;
    UChar32 c = replacementCharacter;
    U8_NEXT_OR_FFFD(bytes, next, length(text), c);
    return c;
}

bool isSpace(UChar32 c) {
    return u_isUWhiteSpace(c) != 0;
}

bool isPunctuation(UChar32 c) {
    return u_ispunct(c) != 0;
}

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};

// Made once a thread: it loads its rules, which costs more than any text of ours.
struct CharacterBreaks {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator{
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)};
};

}  // namespace

bool isValidUtf8(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    for (std::size_t i = 0; i < text.size();) {
        UChar32 c = 0;
        U8_NEXT(bytes, i, text.size(), c);
        if (c < 0) return false;
    }
    return true;
}

std::string lowercased(std::string_view text) {
    if (isAscii(text)) {
        std::string result(text);
        std::transform(result.begin(), result.end(), result.begin(), asciiLower);
        return result;
    }
    return mapped(text, [](icu::StringPiece in, icu::ByteSink& out, UErrorCode& status) {
        icu::CaseMap::utf8ToLower("", 0, in, out, nullptr, status);
    });
}

std::string uppercased(std::string_view text) {
    if (isAscii(text)) {
        std::string result(text);
        std::transform(result.begin(), result.end(), result.begin(), asciiUpper);
        return result;
    }
    return mapped(text, [](icu::StringPiece in, icu::ByteSink& out, UErrorCode& status) {
        icu::CaseMap::utf8ToUpper("", 0, in, out, nullptr, status);
    });
}

std::string folded(std::string_view text) {
    if (isAscii(text)) return lowercased(text);
    // Marks go first: folding would turn the iota below a Greek vowel into a letter of its own.
    icu::UnicodeString wide = withoutMarks(icu::UnicodeString::fromUTF8(piece(text)));
    wide.foldCase();
    std::string result;
    return withoutMarks(wide).toUTF8String(result);
}

std::string caseFolded(std::string_view text) {
    if (isAscii(text)) return lowercased(text);
    return mapped(text, [](icu::StringPiece in, icu::ByteSink& out, UErrorCode& status) {
        icu::CaseMap::utf8Fold(0, in, out, nullptr, status);
    });
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    if (isAscii(a) && isAscii(b)) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return asciiLower(x) == asciiLower(y); });
    }
    return caseFolded(a) == caseFolded(b);
}

std::string_view trimmed(std::string_view text) {
    return trimmedWhile(text, isSpace);
}

std::string_view trimmedPunctuation(std::string_view text) {
    return trimmedWhile(text, isPunctuation);
}

std::string_view trimmedSpaceAndPunctuation(std::string_view text) {
    return trimmedWhile(text, [](UChar32 c) { return isSpace(c) || isPunctuation(c); });
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    // Between two ASCII characters there is always a boundary, but for CR LF.
    if (text.size() > count) {
        const std::string_view head = text.substr(0, count + 1);
        if (isAscii(head) && head.find('\r') == std::string_view::npos)
            return text.substr(0, count);
    }
    thread_local const CharacterBreaks characters;
    UErrorCode status = characters.status;
    icu::BreakIterator* breaks = characters.iterator.get();
    const std::unique_ptr<UText, CloseText> source(
        utext_openUTF8(nullptr, text.data(), length(text), &status));
    if (U_FAILURE(status)) return text.substr(0, 0);
    breaks->setText(source.get(), status);
    std::int32_t end = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t next = breaks->next();
        if (next == icu::BreakIterator::DONE) break;
        end = next;
    }
    return text.substr(0, static_cast<std::size_t>(end));
}

bool startsUppercase(std::string_view text) {
    return !text.empty() && u_isUUppercase(firstCodePoint(text)) != 0;
}

std::string isolated(std::string_view name) {
    if (isAscii(name)) return std::string(name);
    icu::UnicodeString plain = icu::UnicodeString::fromUTF8(piece(name));
    bool turns = false;
    for (std::int32_t i = plain.length() - 1; i >= 0; --i) {
        const UChar32 c = plain.char32At(i);
        const bool embeds = c >= 0x202A && c <= 0x202E;
        const bool isolates = c >= 0x2066 && c <= 0x2069;
        if (embeds || isolates) plain.remove(i, 1);
        const UCharDirection direction = u_charDirection(c);
        turns |= direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC;
    }
    std::string text;
    plain.toUTF8String(text);
    return turns ? "\u2068" + text + "\u2069" : text;
}

bool isNumeral(std::string_view text) {
    return !text.empty() && firstCharacters(text, 1).size() == text.size() &&
           u_getIntPropertyValue(firstCodePoint(text), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

}  // namespace noonward::unicode
