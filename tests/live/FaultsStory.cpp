#include <filesystem>

#include "live/Desktop.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

// What goes wrong around the program while it runs.
class FaultsStory : public Desktop {
 protected:
    std::filesystem::path configFolder() const { return configFile().parent_path(); }
};

TEST_F(FaultsStory, WhatAnotherProgramWritesIsTakenUpOrPutAside) {
    launch();
    openRibbon();
    EXPECT_EQ(copied().find("Chamonix"), std::string::npos);
    hand.key("Escape");
    see("the ribbon gone", [this] { return !panel(); });
    auto places = config()["places"];
    places[1]["label"] = "Chamonix";
    configure({{"places", places}, {"favourites", {places[0]["label"], "Chamonix"}}});
    openRibbon();
    EXPECT_NE(copied().find("Chamonix"), std::string::npos);

    const std::string torn = R"({"places": [{"label": "Cham)";
    writeText(configFile(), torn);
    changeLengthTo(15);
    EXPECT_EQ(config()["places"], places) << "what is shown is what is saved";
    EXPECT_EQ(readText(configFile().string() + ".unreadable"), torn);
}

TEST_F(FaultsStory, AFolderThatGoesTakesNothingWithIt) {
    launch();
    openRibbon();
    const auto places = config()["places"];
    std::filesystem::remove_all(configFolder());
    changeLengthTo(15);
    EXPECT_EQ(config()["places"], places);

    // Something is in the way, and then it is not.
    std::filesystem::remove_all(configFolder());
    writeText(configFolder(), "a file");
    hand.key("d");
    EXPECT_FALSE(copied().empty());
    EXPECT_EQ(readText(configFolder()), "a file");
    std::filesystem::remove(configFolder());
    changeLengthTo(45);
    EXPECT_EQ(config()["places"], places);
}

TEST_F(FaultsStory, ABusThatDiesTakesOnlyItsServicesWithIt) {
    launch();
    openRibbon();
    bus.stop();
    changeLengthTo(15);
    hand.key("Escape");
    see("the ribbon gone", [this] { return !panel(); });
    openRibbon();
    hand.key("s");
    see("the settings", [this] { return areSettingsSeen(); });
}

TEST_F(FaultsStory, WhateverComesByTheBusOnlyOpensAndCloses) {
    launch();
    const std::string name = "com.ostrelmead.noonward";
    const std::string object = "/com/ostrelmead/noonward";
    const std::string application = "org.freedesktop.Application.";
    const std::string endless = "string:" + std::string(100'000, 'x');
    const std::vector<std::string> opening[] = {
        {"--type=signal", "/x", name + ".toggle", "string:\xC3\xA9", "int32:-1", "double:nan"},
        {"--type=signal", "/x", name + ".toggle", endless},
        {"--print-reply", "--dest=" + name, object, application + "Activate"},
        {"--print-reply", "--dest=" + name, object, application + "Activate", "int32:7", endless},
        {"--print-reply", "--dest=" + name, object, application + "Activate",
         "dict:string:string:quit,now"},
    };
    for (const auto& words : opening) {
        sendOnBus(words);
        see("the ribbon", [this] { return isRibbonSeen(); });
        sendOnBus(words);
        see("the ribbon gone", [this] { return !panel(); });
    }
    sendOnBus({"--print-reply", "--dest=" + name, object, application + "ActivateAction",
               "string:quit", "array:string:", "dict:string:string:"});
    sendOnBus({"--print-reply", "--dest=" + name, object, application + "Open", endless});
    sendOnBus({"--type=signal", "/x", name + ".quit"});
    sendOnBus({"--type=signal", "/x", name + ".Toggle"});
    openRibbon();
}

TEST_F(FaultsStory, MonitorsThatComeAndGoAThousandTimes) {
    launch();
    openRibbon();
    for (int i = 0; i < 500; ++i) {
        xrandr({"--setmonitor", "*left", "800/200x900/200+0+0", "screen"});
        xrandr({"--delmonitor", "left"});
        if (i % 50 == 25) hand.key("Control+Alt+t");
    }
    // It may have heard of a part of them only.
    see("the wait at the only one's notch, and nothing else", [this] {
        if (panel()) hand.key("Escape");
        moveAway();
        return staysFor(500ms, [this] { return isTrapLaid() && !panel(); });
    });
    openRibbon();
    EXPECT_EQ(panel()->left(), left);
}

}  // namespace
}  // namespace noonward::test
