#pragma once

namespace noonward {

class HotKeys;
class Keyboard;
class Pointer;
class PressesElsewhere;
class Screens;
class WindowSystem;

/// The services that come from the display server, whichever that is.
class DisplayServices {
 public:
    virtual ~DisplayServices() = default;
    virtual Screens& screens() = 0;
    virtual Pointer& pointer() = 0;
    virtual WindowSystem& windows() = 0;
    virtual PressesElsewhere& presses() = 0;
    virtual Keyboard& keyboard() = 0;
    /// Keys that the server itself gives out; null where it gives none.
    virtual HotKeys* hotKeys() = 0;
    /// Whether those are all that there is to ask for; false inside a Wayland compositor.
    virtual bool hearsAllKeys() const = 0;
};

}  // namespace noonward
