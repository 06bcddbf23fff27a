#pragma once

#include <cctz/time_zone.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "time/Instant.h"

namespace noonward {

/// A zone of the IANA time-zone database: a cheap handle, freely copied. Always valid; zones come
/// from `find` or `utc`. Main thread only: handles of one zone share what was last looked up.
///
/// Instants before `earliest` or after `latest` are taken as those.
class TimeZone {
 public:
    /// Between these every local date lies in the years 1 to 9999.
    static constexpr Instant earliest = std::chrono::sys_days(std::chrono::year(1) / 1 / 3);
    static constexpr Instant latest = std::chrono::sys_days(std::chrono::year(9999) / 12 / 30);

    /// The zone with that identifier, or nothing when the identifier is not known (see `isKnown`).
    static std::optional<TimeZone> find(std::string_view identifier);

    /// The zone "UTC", which needs no database.
    static TimeZone utc();

    /// Whether an identifier may name a zone here: zone.tab or a `Z` or `L` line of tzdata.zi
    /// lists it, and there is a file of the right form for it. Empty text, "Factory", paths and
    /// POSIX strings are unknown. Only the file's beginning is looked at: one that is damaged
    /// further in is known, and yet not found.
    static bool isKnown(std::string_view identifier);

    /// The identifiers of zone.tab, sorted by code point: the zones that people live in.
    static const std::vector<std::string>& listed();

    using ReadFile = std::function<std::optional<std::string>(const std::string& identifier)>;
    /// Takes up zone data that has been replaced since it was loaded, for handles that there are
    /// as well. True when anything has changed. `read` gives a zone's file.
    static bool takeUpReplacedData(const ReadFile& read);
    static bool takeUpReplacedData();

    /// The identifier as it was asked for: "Asia/Calcutta" stays "Asia/Calcutta".
    const std::string& identifier() const;

    /// Offset from UTC at an instant, east positive.
    seconds offset(Instant at) const;

    /// The database's abbreviation at an instant: "BST", or a bare offset such as "+0530".
    std::string abbreviation(Instant at) const;

    /// Zones are the same when their identifiers are.
    friend bool operator==(const TimeZone& a, const TimeZone& b) { return a.data_ == b.data_; }

    /// A stretch of time during which the offset does not change: [from, until). It is as long as
    /// can be up to the year 2400; later ones are cut to a day on either side of the instant.
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
    static std::map<std::string, Data, std::less<>>& loaded();
    explicit TimeZone(const Data& data) : data_(&data) {}
    const Data* data_;  // lives as long as the process
};

}  // namespace noonward
