#include "live/Desktop.h"

namespace noonward::test {
namespace {

class ZoneStory : public Desktop {};

// What the system's own service says when the zone is set, with the program's panel open.
TEST_F(ZoneStory, AChangeOfTheZoneIsTakenUpAtOnce) {
    Process service(
        {"/usr/bin/python3", "-m", "dbusmock", "--system", "-t", "timedated"},
        std::map<std::string, std::string>{
            {"PATH", "/usr/bin:/bin"}, {"DBUS_SYSTEM_BUS_ADDRESS", bus.address().toStdString()}});
    const auto setZone = [this] {
        Process caller({"dbus-send", "--bus=" + bus.address().toStdString(), "--print-reply",
                        "--dest=org.freedesktop.timedate1", "/org/freedesktop/timedate1",
                        "org.freedesktop.timedate1.SetTimezone", "string:Asia/Tokyo",
                        "boolean:false"});
        return exitStatus(caller) == 0;
    };
    see("the service", setZone);
    launch();
    openRibbon();
    EXPECT_EQ(copied().find("Tokyo"), std::string::npos);
    auto places = config()["places"];
    places[1]["label"] = "Tokyo";
    places[1]["zone"] = "Asia/Tokyo";
    configure({{"places", places}});
    EXPECT_TRUE(setZone());
    see("the places as they are now",
        [this] { return copied().find("Tokyo") != std::string::npos; });
}

}  // namespace
}  // namespace noonward::test
