#pragma once

#include <cctz/time_zone.h>

#include <optional>
#include <string>
#include <string_view>

#include "time/Instant.h"

namespace noonward {

/// A zone of the IANA time-zone database: a cheap handle, freely copied. Always valid; zones come
/// from `find` or `utc`.
class TimeZone {
 public:
    /// The zone with that identifier, or nothing when the identifier is not known (see `isKnown`).
    static std::optional<TimeZone> find(std::string_view identifier);

    /// The zone "UTC", which needs no database.
    static TimeZone utc();

    /// Whether an identifier may name a zone here: zone.tab or a `Z` or `L` line of tzdata.zi
    /// lists it, and its file loads. Empty text, "Factory", paths and POSIX strings are unknown.
    static bool isKnown(std::string_view identifier);

    /// The identifier as it was asked for: "Asia/Calcutta" stays "Asia/Calcutta".
    const std::string& identifier() const;

    /// Offset from UTC at an instant, east positive.
    seconds offset(Instant at) const;

    /// The database's abbreviation at an instant: "BST", or a bare offset such as "+0530".
    std::string abbreviation(Instant at) const;

    /// Zones are the same when their identifiers are.
    friend bool operator==(const TimeZone& a, const TimeZone& b) {
        return a.identifier() == b.identifier();
    }

    /// A stretch of time during which the offset does not change: [from, until).
    struct Span {
        Instant from;
        Instant until;
        seconds offset{};
    };
    /// The span an instant lies in; for code that looks up many instants of one strip.
    Span span(Instant at) const;

    const cctz::time_zone& handle() const;

 private:
    struct Data;
    explicit TimeZone(const Data& data) : data_(&data) {}
    const Data* data_;  // kept for the life of the process
};

}  // namespace noonward
