#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/HourFormat.h"

namespace noonward {

/// What the NOONWARD_ environment variables ask of a run that renders pictures and quits. A
/// variable that is set counts as given even when it is empty; values that cannot be read count as
/// not given.
struct Demonstration {
    bool five = false;  ///< leave out the place "San Francisco"
    enum class TravelState { ask, here, home };
    std::optional<TravelState> travel;
    bool roll = false;
    std::optional<std::string> update;
    std::optional<int> column;
    std::optional<int> minutes;
    std::optional<std::string> time;  ///< a typed phrase
    std::vector<std::string> hide;    ///< labels, as written
    std::optional<HourFormat> format;
    bool light = false;
    std::string query;        ///< what the settings' search field holds
    std::optional<int> edit;  ///< index of the place whose week is open in the settings

    // Where the pictures go; a variable that is not set asks for none.
    std::optional<std::string> ribbon;
    std::optional<std::string> settings;
    std::optional<std::string> welcome;
    std::optional<std::string> notch;

    /// Reads an environment variable; nothing where it is not set.
    using Environment = std::function<std::optional<std::string>(const char* name)>;

    /// Nothing when none of the four pictures is asked for: the program then runs as usual.
    static std::optional<Demonstration> from(const Environment& environment);
};

/// A whole decimal number with an optional sign and nothing else; numbers beyond `int` count as
/// unreadable.
std::optional<int> parseWhole(std::string_view text);

}  // namespace noonward
