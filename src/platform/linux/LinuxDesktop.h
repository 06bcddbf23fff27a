#pragma once

#include <memory>

#include "platform/ClipboardPasteboard.h"
#include "platform/Desktop.h"
#include "platform/EventLoopQueue.h"
#include "platform/MainLoopTimer.h"
#include "platform/linux/BusSession.h"
#include "platform/linux/CanberraFeedback.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/X11.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Keyboard.h"
#include "platform/linux/X11Pointer.h"
#include "platform/linux/X11PressesElsewhere.h"
#include "platform/linux/X11Screens.h"
#include "platform/linux/X11Stack.h"
#include "platform/linux/X11WindowSystem.h"

namespace noonward {

/// What stands behind the services on an X server; the members, in order, are how it is built.
class LinuxDesktop {
 public:
    /// Null when the application does not run on an X server.
    static std::unique_ptr<LinuxDesktop> connect() {
        auto x11 = X11::connect();
        return x11 ? std::unique_ptr<LinuxDesktop>(new LinuxDesktop(std::move(x11))) : nullptr;
    }

    Desktop services() {
        return {.queue = queue_,
                .timer = timer,
                .screens = screens_,
                .pointer = pointer_,
                .windows = windows_,
                .presses = presses_,
                .keyboard = keyboard_,
                .hotKeys = hotKeys_,
                .session = session,
                .appearance = appearance_,
                .pasteboard = pasteboard_,
                .feedback = feedback_,
                .updater = nullptr};
    }

 private:
    explicit LinuxDesktop(std::unique_ptr<X11> x11) : x11_(std::move(x11)) {}

    std::unique_ptr<X11> x11_;
    EventLoopQueue queue_;
    X11Stack stack_{*x11_};
    X11Screens screens_{*x11_};
    X11Pointer pointer_{*x11_, stack_};
    X11PressesElsewhere presses_{*x11_};
    X11WindowSystem windows_{*x11_, stack_, presses_};
    X11Keyboard keyboard_{*x11_};
    X11HotKeys hotKeys_{*x11_};
    SessionBus bus_;
    PortalAppearance appearance_{bus_};
    ClipboardPasteboard pasteboard_;
    CanberraFeedback feedback_;

 public:
    MainLoopTimer timer;
    BusSession session{bus_};
};

}  // namespace noonward
