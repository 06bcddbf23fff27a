#include "platform/x11/X11Motion.h"

#include <xcb/xinput.h>

#include <utility>

namespace noonward {

X11Motion::X11Motion(X11& x11) : x11_(x11) {
    const auto* extension = xcb_get_extension_data(x11_.connection(), &xcb_input_id);
    if (!extension || !extension->present) return;
    const Reply<xcb_input_xi_get_client_pointer_reply_t> pointer(
        xcb_input_xi_get_client_pointer_reply(
            x11_.connection(), xcb_input_xi_get_client_pointer(x11_.connection(), XCB_WINDOW_NONE),
            nullptr));
    if (!pointer || !pointer->set) return;
    extension_ = extension->major_opcode;
    device_ = pointer->deviceid;
}

X11Motion::~X11Motion() {
    stop();
}

void X11Motion::watch() {
    hasMoved_ = false;
    if (extension_ == 0) return;
    events_ = x11_.onEvent(
        [this](const xcb_generic_event_t& event, std::uint8_t type) { take(event, type); });
    select(true);
}

void X11Motion::stop() {
    events_.reset();
    select(false);
}

void X11Motion::take(const xcb_generic_event_t& event, std::uint8_t type) {
    if (type != XCB_GE_GENERIC) return;
    const auto& raw = as<xcb_input_raw_motion_event_t>(event);
    if (raw.extension != extension_ || raw.event_type != XCB_INPUT_RAW_MOTION) return;
    hasMoved_ = true;
    select(false);
}

// Of this one device nobody else in the program asks the root for events.
void X11Motion::select(bool wanted) {
    if (std::exchange(isSelected_, wanted) == wanted) return;
    const std::uint32_t motion = XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const choice{{device_, 1}, wanted ? motion : 0};
    x11_.ignoreError(
        xcb_input_xi_select_events_checked(x11_.connection(), x11_.root(), 1, &choice.head));
    xcb_flush(x11_.connection());
}

}  // namespace noonward
