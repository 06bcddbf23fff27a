#include "app/Application.h"

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

#include "app/Demonstration.h"
#include "app/RibbonWindow.h"
#include "app/Snapshot.h"
#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "model/Store.h"
#include "platform/MainLoopTimer.h"
#include "views/theme/Fonts.h"

namespace noonward {
namespace {

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

// Pictures are of one moment: nothing repeats while they are taken.
class NoTimer final : public RepeatingTimer {
 public:
    Subscription every(std::chrono::milliseconds, std::function<void()>) override { return {}; }
};

class NoZoneChanges final : public ZoneChanges {
 public:
    Subscription subscribe(std::function<void()>) override { return {}; }
};

// The countries' calendars lie beside the configuration.
std::filesystem::path holidayFolder(const ConfigPaths& paths) {
    return paths.file.empty() ? std::filesystem::path() : paths.file.parent_path() / "Holidays";
}

// Everything the model stands on; the members, in order, are how it is built.
struct Planner {
    Planner(RepeatingTimer& timer, ConfigFile::Access access)
        : paths(configPaths(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"))),
          configFile(paths, access),
          holidays(holidayFolder(paths), clock, nullptr),
          store({clock, zone, configFile, holidays, timer, zoneChanges}) {
        ui.version = NOONWARD_VERSION;
    }

    SystemClock clock;
    ComputerZone zone;
    ConfigPaths paths;
    ConfigFile configFile;
    Holidays holidays;
    NoZoneChanges zoneChanges;
    Store store;
    NotchUI ui;
};

// The program writes no log of its own, and Qt none in its name: it would complain of an absent
// session, which pictures do not need.
void sayNothing(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

int renderPictures(char** argv, const Demonstration& demonstration) {
    qInstallMessageHandler(sayNothing);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int noArguments = argv[0] ? 1 : 0;
    const QGuiApplication application(noArguments, argv);
    registerFonts();

    NoTimer timer;
    Planner planner(timer, ConfigFile::Access::readOnly);
    takeSnapshots(demonstration, planner.store, planner.ui, planner.zone);
    return 0;
}

int showWindow(char** argv) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    int noArguments = argv[0] ? 1 : 0;
    const QGuiApplication application(noArguments, argv);
    registerFonts();

    MainLoopTimer timer;
    Planner planner(timer, ConfigFile::Access::readWrite);
    RibbonWindow window(planner.store, planner.ui);
    window.show();
    return QGuiApplication::exec();
}

}  // namespace

// There are no command-line options, Qt's neither: only the program's name goes on.
int run(char** argv) {
    if (const auto demonstration = Demonstration::from(environmentVariable)) {
        return renderPictures(argv, *demonstration);
    }
    if (environmentVariable("DISPLAY").value_or("").empty()) {
        std::fputs("noonward: there is no X display to open (DISPLAY is not set)\n", stderr);
        return 1;
    }
    return showWindow(argv);
}

}  // namespace noonward
