#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace noonward {

/// How times are shown; `utc` is the 24-hour clock and a UTC row in the ribbon.
enum class HourFormat { h24, h12, utc };

inline constexpr std::array allHourFormats{HourFormat::h24, HourFormat::h12, HourFormat::utc};

/// The text stored for a format: "24h", "12h", "utc".
std::string_view rawValue(HourFormat format);

/// The format stored as exactly that text, or nothing.
std::optional<HourFormat> hourFormat(std::string_view rawValue);

/// Whether times are shown with AM and PM.
constexpr bool twelve(HourFormat format) {
    return format == HourFormat::h12;
}

/// The format after this one: h24, h12, utc, and round again.
HourFormat next(HourFormat format);

}  // namespace noonward
