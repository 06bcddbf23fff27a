#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "support/PrivateBus.h"
#include "support/TempFolder.h"

namespace noonward::bench {

/// A home with two places in it and a bus of its own: what the program is started with.
class TwoPlaces {
 public:
    TwoPlaces() {
        test::writeText(folder_ / "Noonward/places.json",
                        R"({"places":[
                {"label":"London","short":"LON","zone":"Europe/London","home":true},
                {"label":"New York","short":"NYC","zone":"America/New_York"}],
                "favourites":["London","New York"],"welcomed":true,"clickSound":false})");
    }

    std::filesystem::path folder() const { return folder_.path(); }
    const test::PrivateBus& bus() const { return bus_; }
    /// `display` says where, and by which platform.
    std::map<std::string, std::string> environment(
        std::map<std::string, std::string> display) const {
        display.merge(std::map<std::string, std::string>{
            {"DBUS_SESSION_BUS_ADDRESS", bus_.address().toStdString()},
            {"HOME", folder_.path()},
            {"LANG", "C.UTF-8"},
            {"PATH", "/usr/bin:/bin"},
            {"QT_ACCESSIBILITY", "0"},
            {"XDG_DATA_HOME", folder_.path()}});
        return display;
    }

 private:
    test::TempFolder folder_;
    test::PrivateBus bus_;
};

}  // namespace noonward::bench
