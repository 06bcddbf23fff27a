#include "app/Planner.h"

#include <cstdlib>

namespace noonward {
namespace {

// The countries' calendars lie beside the configuration.
std::filesystem::path holidayFolder(const ConfigPaths& paths) {
    return paths.file.empty() ? std::filesystem::path() : paths.file.parent_path() / "Holidays";
}

}  // namespace

Planner::Planner(RepeatingTimer& timer, ZoneChanges& zoneChanges, HttpClient* http,
                 ConfigFile::Access access)
    : paths_(configPaths(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"))),
      configFile_(paths_, access),
      holidays(holidayFolder(paths_), clock_, http),
      store({clock_, zone, configFile_, holidays, timer, zoneChanges}) {
    ui.version = NOONWARD_VERSION;
}

}  // namespace noonward
