#include "platform/LinuxDesktop.h"

#include <cstdlib>
#include <utility>

#include "platform/ClipboardPasteboard.h"
#include "platform/DisplayServices.h"
#include "platform/EventLoopQueue.h"
#include "platform/MainLoopTimer.h"
#include "platform/linux/AutostartLoginItem.h"
#include "platform/linux/BusSession.h"
#include "platform/linux/CanberraFeedback.h"
#include "platform/linux/ClockWatch.h"
#include "platform/linux/KdeHotKeys.h"
#include "platform/linux/MessageBus.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PortalHotKeys.h"
#include "platform/linux/PortalIdentity.h"
#include "platform/linux/ZoneWatch.h"
#include "platform/wayland/WaylandLayers.h"
#include "platform/wayland/WaylandProbe.h"
#include "platform/wayland/WaylandServices.h"
#include "platform/x11/X11End.h"
#include "platform/x11/X11Services.h"

namespace noonward {
namespace {

std::string environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : std::string();
}

}  // namespace

// The members, in order, are how it is built.
struct LinuxDesktop::Services {
    explicit Services(std::unique_ptr<DisplayServices> services) : display(std::move(services)) {}

    // Inside a Wayland compositor an X server hears of keys only while they go to its windows.
    HotKeys& hotKeys() {
        if (display->hearsAllKeys()) return *display->hotKeys();
        if (KdeHotKeys::isTheirs(std::getenv("XDG_CURRENT_DESKTOP"))) return kdeKeys;
        return portalKeys;
    }

    std::unique_ptr<DisplayServices> display;
    EventLoopQueue queue;
    MainLoopTimer timer;
    SessionBus bus;
    PortalIdentity identity{bus};
    PortalHotKeys portalKeys{bus, display->hotKeys()};
    KdeHotKeys kdeKeys{bus};
    BusSession session{bus};
    PortalAppearance appearance{bus};
    ClipboardPasteboard pasteboard;
    CanberraFeedback feedback;
    AutostartLoginItem::Setting login = AutostartLoginItem::ofSession();
    AutostartLoginItem loginItem{login};
    SystemBus systemBus;
    ZoneWatch zoneChanges{systemBus};
    ClockWatch clockChanges{systemBus};
};

std::string LinuxDesktop::prepare() {
    SessionBus::startNone();
    endQuietlyWithTheServer();
    const std::string reason = whyNotWayland();
    if (reason.empty()) {
        qputenv("QT_QPA_PLATFORM", "wayland");
        WaylandLayers::prepare();
        return {};
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    if (!environmentVariable("DISPLAY").empty()) return {};
    return "there is no X display to open (DISPLAY is not set), and " + reason;
}

std::string LinuxDesktop::display() {
    return environmentVariable("QT_QPA_PLATFORM") == "wayland"
               ? "Wayland display \"" + environmentVariable("WAYLAND_DISPLAY") + '"'
               : "X display \"" + environmentVariable("DISPLAY") + '"';
}

std::unique_ptr<LinuxDesktop> LinuxDesktop::connect() {
    auto display = connectWayland();
    if (!display) display = connectX11();
    if (!display) return nullptr;
    return std::unique_ptr<LinuxDesktop>(
        new LinuxDesktop(std::make_unique<Services>(std::move(display))));
}

LinuxDesktop::LinuxDesktop(std::unique_ptr<Services> services) : services_(std::move(services)) {}
LinuxDesktop::~LinuxDesktop() = default;

Desktop LinuxDesktop::services() {
    Services& s = *services_;
    return {.queue = s.queue,
            .timer = s.timer,
            .screens = s.display->screens(),
            .pointer = s.display->pointer(),
            .windows = s.display->windows(),
            .presses = s.display->presses(),
            .keyboard = s.display->keyboard(),
            .hotKeys = s.hotKeys(),
            .session = s.session,
            .appearance = s.appearance,
            .pasteboard = s.pasteboard,
            .feedback = s.feedback,
            .loginItem = s.loginItem,
            .zoneChanges = s.zoneChanges,
            .clockChanges = s.clockChanges,
            .updater = nullptr,
            .installed = isInstalled(s.login.program)};
}

}  // namespace noonward
