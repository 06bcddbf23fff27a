#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/FileOperations.h"
#include "holidays/HolidayDays.h"
#include "time/Instant.h"

namespace noonward {

/// A country's calendar as it was downloaded.
struct CachedHolidays {
    double fetched = 0;  ///< seconds since 2001-01-01 00:00:00 UTC, as the files count
    HolidayDays days;
};

/// Seconds from 2001-01-01 00:00:00 UTC to an instant.
double secondsSince2001(Instant at);

/// Reads a country's cache file, `<folder>/IN.json`; nothing when there is none, when it is no
/// cache file, or for anything but a two-letter code. Entries that name no day are left out.
std::optional<CachedHolidays> readHolidayCache(const std::filesystem::path& folder,
                                               const std::string& country);

/// Writes it, with the folders above it. Failures leave the file as it was.
void writeHolidayCache(const std::filesystem::path& folder, const std::string& country,
                       const CachedHolidays& cached,
                       FileOperations& operations = FileOperations::system());

}  // namespace noonward
