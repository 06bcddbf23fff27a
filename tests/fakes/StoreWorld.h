#pragma once

#include <string>

#include "config/Config.h"
#include "config/ConfigFile.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeSystemZone.h"
#include "fakes/FakeTimer.h"
#include "fakes/FakeZoneChanges.h"
#include "holidays/Holidays.h"
#include "model/Store.h"
#include "support/Instants.h"
#include "support/TempFolder.h"

namespace noonward::test {

/// Everything a Store stands on: a computer in a zone at a time, with files of its own.
struct StoreWorld {
    StoreWorld(const char* here, const char* now, const Config& config)
        : clock(utc(now)), zone(zoneNamed(here)) {
        file.save(config);
    }

    Store::Services services() { return {clock, zone, file, holidays, timer, zoneChanges}; }

    /// What the next run would load.
    Config saved() { return ConfigFile(paths).load(zone.current()); }

    /// Puts holidays of a country where they are found on `ensure`; each with its day and its JSON.
    void cacheHolidays(const std::string& country, const std::string& days) {
        const auto age = clock.time - utc("2001-01-01 00:00");
        const auto fetched = std::chrono::duration_cast<seconds>(age).count();
        writeText(folder.path() / "Holidays" / (country + ".json"),
                  R"({"fetched":)" + std::to_string(fetched) + R"(,"days":{)" + days + "}}");
    }

    TempFolder folder;
    ConfigPaths paths{.file = folder.path() / "Noonward" / "places.json", .oldFile = {}};
    FakeClock clock;
    FakeSystemZone zone;
    ConfigFile file{paths};
    Holidays holidays{folder / "Holidays", clock, nullptr};
    FakeTimer timer;
    FakeZoneChanges zoneChanges;
};

/// London (home), New York and Singapore; London and Singapore beside the notch.
inline Config threePlaces() {
    Config config;
    config.homeZones = {"Europe/London"};
    config.places = {{.label = "London", .shortName = "LON", .zone = "Europe/London", .home = true},
                     {.label = "New York", .shortName = "NYC", .zone = "America/New_York"},
                     {.label = "Singapore", .shortName = "SIN", .zone = "Asia/Singapore"}};
    config.favourites = {"London", "Singapore"};
    return config;
}

}  // namespace noonward::test
