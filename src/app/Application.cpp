#include "app/Application.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "app/AppDelegate.h"
#include "app/Demonstration.h"
#include "app/Notch.h"
#include "app/Planner.h"
#include "app/Snapshot.h"
#include "kit/Accessibility.h"
#include "platform/HttpsClient.h"
#include "platform/LinuxDesktop.h"
#include "platform/MainQueue.h"
#include "platform/QtScreens.h"
#include "platform/Session.h"
#include "reference/GazetteerGeocoder.h"
#include "views/theme/Fonts.h"
#include "views/theme/WidgetLook.h"

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

// The program writes no log of its own, and Qt none in its name. What Qt cannot go on after is said
// in one line; it is no crash.
void sayNothing(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "noonward: %s\n", qPrintable(message.section('\n', 0, 0)));
    std::_Exit(1);
}

// The one thing that Qt cannot go on after while it starts; it would speak of reinstalling.
void sayThatThereIsNoDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "noonward: the %s cannot be opened\n", LinuxDesktop::display().c_str());
    std::_Exit(1);
}

// The off-screen platform has one screen, and no camera: the notch is as large as anywhere else.
void measureNotch(NotchUI& ui) {
    const QtScreens screens;
    const auto notch = findNotch(screens.all(), screens.main(), screens.statusBarThickness());
    if (!notch) return;
    ui.notchWidth = notch->rect.width();
    ui.height = notch->rect.height();
}

int renderPictures(char** argv, const Demonstration& demonstration) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int noArguments = argv[0] ? 1 : 0;
    const QGuiApplication application(noArguments, argv);
    registerFonts();

    NoTimer timer;
    NoZoneChanges zoneChanges;
    Planner planner(timer, zoneChanges, nullptr, ConfigFile::Access::readOnly);
    measureNotch(planner.ui);
    kit::Animations animations;
    takeSnapshots(demonstration, planner.store, planner.ui, planner.zone,
                  {.animations = animations, .holidays = planner.holidays});
    return 0;
}

int live(char** argv) {
    if (const std::string missing = LinuxDesktop::prepare(); !missing.empty()) {
        std::fprintf(stderr, "noonward: %s\n", missing.c_str());
        return 1;
    }
    QApplication::setStyle(makeWidgetStyle());
    int noArguments = argv[0] ? 1 : 0;
    qInstallMessageHandler(sayThatThereIsNoDisplay);
    const QApplication application(noArguments, argv);
    qInstallMessageHandler(sayNothing);
    QApplication::setQuitOnLastWindowClosed(false);
    kit::installAccessibility();
    const auto linuxDesktop = LinuxDesktop::connect();
    if (!linuxDesktop) return 1;
    const Desktop desktop = linuxDesktop->services();

    AppDelegate* running = nullptr;
    const auto comeForward = [&running] {
        if (running) running->togglePanel();
    };
    if (desktop.session.claim(comeForward) == Session::Claim::another) return 0;

    registerFonts();
    HttpsClient http;
    Planner planner(desktop.timer, desktop.zoneChanges, &http, ConfigFile::Access::readWrite);
    GazetteerGeocoder geocoder(
        [&queue = desktop.queue](auto work) { queue.post(std::move(work)); });
    AppDelegate delegate(planner, geocoder, desktop);
    running = &delegate;
    const int status = QApplication::exec();
    running = nullptr;
    return status;
}

}  // namespace

// There are no command-line options, Qt's neither: only the program's name goes on.
int run(char** argv) {
    qInstallMessageHandler(sayNothing);
    if (const auto demonstration = Demonstration::from(environmentVariable)) {
        return renderPictures(argv, *demonstration);
    }
    return live(argv);
}

}  // namespace noonward
