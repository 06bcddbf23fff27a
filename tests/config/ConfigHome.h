#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "config/ConfigFile.h"
#include "config/ConfigJson.h"
#include "fakes/FaultyFiles.h"
#include "support/TempFolder.h"

namespace noonward {

inline void PrintTo(const Config& config, std::ostream* out) {
    *out << encodeConfig(config);
}

inline void PrintTo(const Place& place, std::ostream* out) {
    Config config;
    config.places = {place};
    PrintTo(config, out);
}

}  // namespace noonward

namespace noonward::test {

inline TimeZone kolkata() {
    return TimeZone::find("Asia/Kolkata").value();
}

/// A configuration in good order.
inline Config exampleConfig() {
    Config config;
    config.homeZones = {"Asia/Kolkata"};
    config.favourites = {"Pune", "Oslo"};
    config.welcomed = true;
    config.places = {
        {.label = "Pune", .shortName = "PNQ", .zone = "", .home = true},
        {.label = "Oslo", .shortName = "OSL", .zone = "Europe/Oslo"},
        {.label = "Rome", .shortName = "ROM", .zone = "Europe/Rome"},
    };
    return config;
}

/// A home folder, and the program's view of the configuration in it.
struct ConfigHome {
    TempFolder folder;
    ConfigPaths paths{folder / "data/Noonward/places.json", folder / ".config/zones/places.json"};
    FaultyFiles operations;
    ConfigFile file{paths, ConfigFile::Access::readWrite, operations};

    Config load() { return file.load(kolkata()); }
    std::string text() const { return readText(paths.file); }
    std::filesystem::path beside(const std::string& suffix) const {
        return paths.file.string() + suffix;
    }
    std::vector<std::string> names() const { return namesIn(paths.file.parent_path()); }
};

}  // namespace noonward::test
