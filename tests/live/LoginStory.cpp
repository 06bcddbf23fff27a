#include <filesystem>

#include "live/Desktop.h"

namespace noonward::test {
namespace {

namespace fs = std::filesystem;

class LoginStory : public Desktop {
 protected:
    void firstRun() {
        configure({{"welcomed", false}});
        launch();
        see("the welcome", [this] { return isPanelSeen(); });
    }
};

TEST_F(LoginStory, TryingTheProgramOutLeavesTheLoginAsItIs) {
    firstRun();
    EXPECT_FALSE(fs::exists(folder / ".config"));
}

TEST_F(LoginStory, AnInstalledCopyIsStartedAtLoginFromItsFirstRunOn) {
    const std::string entry = folder / ".config/autostart/noonward.desktop";
    programFile = folder / "opt/my clocks/bin/noonward";
    fs::create_directories(fs::path(programFile).parent_path());
    fs::copy_file(NOONWARD_PROGRAM, programFile);
    writeText(folder / "opt/my clocks/share/applications/noonward.desktop", "");
    firstRun();
    const std::string text = readText(entry);
    EXPECT_NE(text.find("Exec=\"" + programFile + "\"\n"), std::string::npos) << text;

    hand.key("Escape");
    see("the welcome gone", [this] { return !panel(); });
    program->signal(SIGTERM);
    EXPECT_EQ(exitStatus(), 0);
    fs::remove(entry);  // the user does not want it
    launch();
    openRibbon();
    EXPECT_FALSE(fs::exists(entry));
}

}  // namespace
}  // namespace noonward::test
