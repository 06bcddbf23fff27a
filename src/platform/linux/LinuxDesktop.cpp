#include "platform/linux/LinuxDesktop.h"

#include <cstdlib>

#include "platform/ClipboardPasteboard.h"
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
#include "platform/linux/ServerEnd.h"
#include "platform/linux/X11.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Keyboard.h"
#include "platform/linux/X11Pointer.h"
#include "platform/linux/X11PressesElsewhere.h"
#include "platform/linux/X11Screens.h"
#include "platform/linux/X11Stack.h"
#include "platform/linux/X11WindowSystem.h"
#include "platform/linux/ZoneWatch.h"

namespace noonward {

// The members, in order, are how it is built.
struct LinuxDesktop::Services {
    explicit Services(std::unique_ptr<X11> connection) : x11(std::move(connection)) {}

    // Inside a Wayland compositor an X server hears of keys only while they go to its windows.
    HotKeys& hotKeys() {
        if (!x11->insideWayland()) return grabs;
        if (KdeHotKeys::isTheirs(std::getenv("XDG_CURRENT_DESKTOP"))) return kdeKeys;
        return portalKeys;
    }

    std::unique_ptr<X11> x11;
    EventLoopQueue queue;
    MainLoopTimer timer;
    X11Stack stack{*x11};
    X11Screens screens{*x11};
    X11Pointer pointer{*x11, stack};
    X11PressesElsewhere presses{*x11};
    X11WindowSystem windows{*x11, stack, presses};
    X11Keyboard keyboard{*x11};
    X11HotKeys grabs{*x11};
    SessionBus bus;
    PortalIdentity identity{bus};
    PortalHotKeys portalKeys{bus, grabs};
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

void LinuxDesktop::prepare() {
    SessionBus::startNone();
    endQuietlyWithTheServer();
}

std::unique_ptr<LinuxDesktop> LinuxDesktop::connect() {
    auto x11 = X11::connect();
    if (!x11) return nullptr;
    return std::unique_ptr<LinuxDesktop>(
        new LinuxDesktop(std::make_unique<Services>(std::move(x11))));
}

LinuxDesktop::LinuxDesktop(std::unique_ptr<Services> services) : services_(std::move(services)) {}
LinuxDesktop::~LinuxDesktop() = default;

Desktop LinuxDesktop::services() {
    Services& s = *services_;
    return {.queue = s.queue,
            .timer = s.timer,
            .screens = s.screens,
            .pointer = s.pointer,
            .windows = s.windows,
            .presses = s.presses,
            .keyboard = s.keyboard,
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
