#include "platform/linux/X11PressesElsewhere.h"

#include <xcb/xinput.h>

#include <QMetaObject>
#include <QPointer>
#include <memory>
#include <utility>

namespace noonward {
namespace {

constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t rightButton = 3;

}  // namespace

X11PressesElsewhere::X11PressesElsewhere(X11& x11) : x11_(x11) {
    const auto* extension = xcb_get_extension_data(x11_.connection(), &xcb_input_id);
    if (extension && extension->present) extension_ = extension->major_opcode;
}

Subscription X11PressesElsewhere::onPress(std::function<void()> action) {
    if (listeners_++ == 0) select(true);
    auto heard = std::make_shared<Subscription>(presses_.subscribe(std::move(action)));
    return Subscription([this, heard, guard = QPointer<QObject>(&context_)] {
        heard->reset();
        if (guard && --listeners_ == 0) select(false);
    });
}

void X11PressesElsewhere::keysLeft() {
    if (x11_.insideWayland()) presses_.announce();
}

void X11PressesElsewhere::select(bool wanted) {
    if (extension_ == 0) return;
    if (wanted) {
        events_ = x11_.onEvent([this](const xcb_generic_event_t& event, std::uint8_t type) {
            if (!isPress(event, type) || !isElsewhere()) return;
            QMetaObject::invokeMethod(
                &context_, [this] { presses_.announce(); }, Qt::QueuedConnection);
        });
    } else {
        events_.reset();
    }
    // Qt selects for all devices or on its own windows: this choice is ours alone.
    const std::uint32_t mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const choice{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, wanted ? mask : 0};
    x11_.ignoreError(
        xcb_input_xi_select_events_checked(x11_.connection(), x11_.root(), 1, &choice.head));
    xcb_flush(x11_.connection());
}

bool X11PressesElsewhere::isPress(const xcb_generic_event_t& event, std::uint8_t type) const {
    if (type != XCB_GE_GENERIC) return false;
    const auto& raw = as<xcb_input_raw_button_press_event_t>(event);
    return raw.extension == extension_ && raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
           (raw.detail == leftButton || raw.detail == rightButton);
}

/// Asked before Qt handles the press, so that a menu that it closes still counts as ours.
bool X11PressesElsewhere::isElsewhere() const {
    const auto cookie = xcb_query_pointer(x11_.connection(), x11_.root());
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(x11_.connection(), cookie, nullptr));
    return pointer && (pointer->child == XCB_WINDOW_NONE || !x11_.isOurs(pointer->child));
}

}  // namespace noonward
