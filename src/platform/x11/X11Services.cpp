#include "platform/x11/X11Services.h"

#include <utility>

#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11PressesElsewhere.h"
#include "platform/x11/X11Screens.h"
#include "platform/x11/X11WindowSystem.h"

namespace noonward {
namespace {

// The members, in order, are how it is built.
class X11Services final : public DisplayServices {
 public:
    explicit X11Services(std::unique_ptr<X11> x11) : x11_(std::move(x11)) {}

    Screens& screens() override { return screens_; }
    Pointer& pointer() override { return pointer_; }
    WindowSystem& windows() override { return windows_; }
    PressesElsewhere& presses() override { return presses_; }
    Keyboard& keyboard() override { return keyboard_; }
    HotKeys* hotKeys() override { return &grabs_; }
    bool hearsAllKeys() const override { return !x11_->insideWayland(); }

 private:
    std::unique_ptr<X11> x11_;
    X11Stack stack_{*x11_};
    X11Screens screens_{*x11_};
    X11Pointer pointer_{*x11_, stack_};
    X11PressesElsewhere presses_{*x11_};
    X11WindowSystem windows_{*x11_, stack_, presses_};
    X11Keyboard keyboard_{*x11_};
    X11HotKeys grabs_{*x11_};
};

}  // namespace

std::unique_ptr<DisplayServices> connectX11() {
    auto x11 = X11::connect();
    return x11 ? std::make_unique<X11Services>(std::move(x11)) : nullptr;
}

}  // namespace noonward
