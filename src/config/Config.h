#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/Place.h"
#include "time/TimeZone.h"

namespace noonward {

/// Everything the user can set; what places.json holds. Field names are its keys.
struct Config {
    std::string hourFormat = "24h";  ///< "24h", "12h" or "utc"; other texts are kept as they are
    std::vector<std::string> homeZones;   ///< zones in which this computer counts as at home
    std::vector<std::string> favourites;  ///< labels beside the notch, the home place's first
    bool clickSound = true;
    std::string appearance = "system";  ///< "system", "light" or "dark"
    int meetingMinutes = 60;
    bool welcomed = false;
    std::optional<Travel> travel;
    bool rolling = false;  ///< the ribbon keeps now in the middle
    std::vector<Place> places;

    /// What a first run starts with on a computer in the zone `here`: a home place that follows
    /// the computer, and three well-known cities elsewhere.
    static Config defaults(const TimeZone& here);

    /// The same configuration in good order: exactly one home place, in front; favourites that
    /// name places, home first, two at most. A list without places gives `defaults(here)`.
    Config tidied(const TimeZone& here) const;

    /// The first place whose `home` is true, or 0.
    std::size_t homeIndex() const;

    /// Whether two labels are equal ignoring case.
    static bool same(std::string_view a, std::string_view b);

    bool operator==(const Config&) const = default;
};

}  // namespace noonward
