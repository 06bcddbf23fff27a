#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "config/Config.h"

namespace noonward {

/// A configuration as a file holds it, not yet tidied.
struct DecodedConfig {
    Config config;
    bool hasAllKeys = false;  ///< carries every key that a current file carries, null or not

    bool operator==(const DecodedConfig&) const = default;
};

/// Reads a configuration from JSON text (RFC 8259; a byte order mark in front is allowed). Missing
/// keys and those that hold null get the values of `Config::defaults(here)`; unknown keys are
/// ignored; of equal keys the last counts. Nothing when the text is no JSON object, a value has
/// another type than its key asks for, or a place lacks its label, short name or zone.
std::optional<DecodedConfig> decodeConfig(std::string_view text, const TimeZone& here);

/// The JSON text of a configuration: indented, keys sorted, UTF-8, a line feed at the end.
/// Ill-formed UTF-8 in it becomes U+FFFD.
std::string encodeConfig(const Config& config);

}  // namespace noonward
