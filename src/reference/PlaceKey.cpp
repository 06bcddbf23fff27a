#include "reference/PlaceKey.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/Unicode.h"

namespace noonward {
namespace {

// What no keyboard but their own has, and Unicode does not take apart.
constexpr std::array<std::pair<char32_t, std::string_view>, 10> letters = {{
    {U'ø', "o"},
    {U'đ', "d"},
    {U'ð', "d"},
    {U'ł', "l"},
    {U'ħ', "h"},
    {U'ı', "i"},
    {U'æ', "ae"},
    {U'œ', "oe"},
    {U'þ', "th"},
    {U'ə', "a"},
}};

constexpr std::u32string_view dropped = U"'’‘ʻʼʽʾʿ`´.";

bool separates(UChar32 c) {
    return u_isUWhiteSpace(c) != 0 || u_ispunct(c) != 0;
}

}  // namespace

std::string placeKey(std::string_view name) {
    const std::string text = unicode::folded(name);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::string key;
    bool separated = false;
    for (std::size_t next = 0; next < text.size();) {
        const std::size_t begin = next;
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(bytes, next, text.size(), c);
        const auto letter = static_cast<char32_t>(c);
        if (dropped.find(letter) != std::u32string_view::npos) continue;
        if (separates(c)) {
            separated = true;
            continue;
        }
        if (separated && !key.empty()) key += ' ';
        separated = false;
        const auto* known = std::find_if(letters.begin(), letters.end(),
                                         [&](const auto& pair) { return pair.first == letter; });
        key += known != letters.end() ? known->second
                                      : std::string_view(text).substr(begin, next - begin);
    }
    return key;
}

}  // namespace noonward
