#pragma once

#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "model/Store.h"
#include "time/SystemZone.h"
#include "views/NotchUI.h"

namespace noonward {

class HttpClient;

/// The model and everything it stands on; the members, in order, are how it is built.
class Planner {
 public:
    /// Without `http` nothing is downloaded. All must outlive it.
    Planner(RepeatingTimer& timer, ZoneChanges& zoneChanges, HttpClient* http,
            ConfigFile::Access access);

 private:
    SystemClock clock_;
    ConfigPaths paths_;

 public:
    ComputerZone zone;

 private:
    ConfigFile configFile_;

 public:
    Holidays holidays;
    Store store;
    NotchUI ui;
};

}  // namespace noonward
