#include "model/HourFormat.h"

namespace noonward {

std::string_view rawValue(HourFormat format) {
    switch (format) {
        case HourFormat::h24:
            return "24h";
        case HourFormat::h12:
            return "12h";
        case HourFormat::utc:
            return "utc";
    }
    return {};
}

std::optional<HourFormat> hourFormat(std::string_view raw) {
    for (const HourFormat format : allHourFormats)
        if (rawValue(format) == raw) return format;
    return std::nullopt;
}

HourFormat next(HourFormat format) {
    switch (format) {
        case HourFormat::h24:
            return HourFormat::h12;
        case HourFormat::h12:
            return HourFormat::utc;
        case HourFormat::utc:
            break;
    }
    return HourFormat::h24;
}

}  // namespace noonward
