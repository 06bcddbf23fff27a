#include "platform/wayland/WaylandServices.h"

#include <utility>

#include "platform/linux/NotchedScreens.h"
#include "platform/wayland/WaylandKeyboard.h"
#include "platform/wayland/WaylandPointer.h"
#include "platform/wayland/WaylandWindowSystem.h"

namespace noonward {
namespace {

// The members, in order, are how it is built.
class WaylandServices final : public DisplayServices {
 public:
    explicit WaylandServices(std::unique_ptr<Wayland> wayland) : wayland_(std::move(wayland)) {}

    Screens& screens() override { return screens_; }
    Pointer& pointer() override { return pointer_; }
    WindowSystem& windows() override { return windows_; }
    PressesElsewhere& presses() override { return presses_; }
    Keyboard& keyboard() override { return keyboard_; }
    HotKeys* hotKeys() override { return nullptr; }
    bool hearsAllKeys() const override { return false; }

 private:
    std::unique_ptr<Wayland> wayland_;
    WaylandLayers layers_{*wayland_};
    NotchedScreens screens_;
    WaylandPointer pointer_{layers_};
    WaylandPressesElsewhere presses_{layers_};
    WaylandWindowSystem windows_{*wayland_, layers_, presses_};
    WaylandKeyboard keyboard_{*wayland_};
};

}  // namespace

std::unique_ptr<DisplayServices> connectWayland() {
    auto wayland = Wayland::connect();
    return wayland ? std::make_unique<WaylandServices>(std::move(wayland)) : nullptr;
}

}  // namespace noonward
