#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace noonward {

/// A calendar day of the proleptic Gregorian calendar, without a zone. Ordered by date.
/// Its text "yyyy-mm-dd" keys days off and public holidays in files and look-ups.
class DayKey {
 public:
    constexpr DayKey() = default;
    constexpr DayKey(int year, int month, int day) : value_(year * 10000 + month * 100 + day) {}

    /// Reads exactly "yyyy-mm-dd" (four, two and two ASCII digits); anything else gives nothing.
    /// Days that no month has, such as 2026-02-31, are read as they stand: they match no day.
    static std::optional<DayKey> parse(std::string_view text);

    constexpr int year() const { return value_ / 10000; }
    constexpr int month() const { return value_ / 100 % 100; }
    constexpr int day() const { return value_ % 100; }

    /// "%04d-%02d-%02d"
    std::string text() const;

    constexpr auto operator<=>(const DayKey&) const = default;

 private:
    std::int32_t value_ = 0;
};

}  // namespace noonward
