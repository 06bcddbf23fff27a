#include "time/DayKey.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace noonward {
namespace {

std::optional<int> number(std::string_view digits) {
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

}  // namespace

std::optional<DayKey> DayKey::parse(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto year = number(text.substr(0, 4));
    const auto month = number(text.substr(5, 2));
    const auto day = number(text.substr(8, 2));
    if (!year || !month || !day) return std::nullopt;
    return DayKey(*year, *month, *day);
}

std::string DayKey::text() const {
    std::array<char, 48> buffer{};
    const int length =
        std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d", year(), month(), day());
    return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace noonward
