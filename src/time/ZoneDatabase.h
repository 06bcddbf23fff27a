#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The IANA time-zone database as the system keeps it below /usr/share/zoneinfo: which zones there
/// are, and the bytes of their files (TZif, RFC 8536).
namespace noonward::zonedatabase {

/// A line of zone.tab.
struct TableRow {
    std::string country;  ///< two-letter code
    std::string zone;
};

/// The lines of zone.tab in the file's order; none when it cannot be read.
const std::vector<TableRow>& table();

/// Reads zone.tab's form: tab-separated, at least three fields, "#" begins a comment line.
std::vector<TableRow> parseTable(std::string_view text);

/// The zones of zone.tab, sorted by code point, each once.
const std::vector<std::string>& identifiers();

/// Whether zone.tab, or a `Z` or `L` line of tzdata.zi, names the zone. "Factory" is never named.
bool lists(std::string_view identifier);

/// The identifiers that the `Z` and `L` lines of a tzdata.zi define, sorted by code point.
std::vector<std::string> parseZonesAndLinks(std::string_view text);

/// Whether there is a file of the right form for a zone; it is not read in full.
bool hasFile(const std::string& identifier);

/// The bytes of a zone's file; nothing when there is none that can be read.
std::optional<std::string> readFile(const std::string& identifier);

}  // namespace noonward::zonedatabase
