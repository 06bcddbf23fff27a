#pragma once

namespace noonward {

class Appearance;
class ClockChanges;
class Feedback;
class HotKeys;
class Keyboard;
class LoginItem;
class MainQueue;
class Pasteboard;
class Pointer;
class PressesElsewhere;
class RepeatingTimer;
class Screens;
class Session;
class Updater;
class WindowSystem;
class ZoneChanges;

/// The services of the desktop that the program runs on.
struct Desktop {
    MainQueue& queue;
    RepeatingTimer& timer;
    Screens& screens;
    Pointer& pointer;
    WindowSystem& windows;
    PressesElsewhere& presses;
    Keyboard& keyboard;
    HotKeys& hotKeys;
    Session& session;
    Appearance& appearance;
    Pasteboard& pasteboard;
    Feedback& feedback;
    LoginItem& loginItem;
    ZoneChanges& zoneChanges;
    ClockChanges& clockChanges;
    Updater* updater = nullptr;  ///< null where none is installed
    bool installed = false;      ///< the program was started from where it is installed
};

}  // namespace noonward
