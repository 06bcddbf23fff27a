#include "platform/x11/X11PressesElsewhere.h"

#include <xcb/xinput.h>

#include <QGuiApplication>
#include <QMetaObject>
#include <QPointer>
#include <QRect>
#include <QWindow>
#include <memory>
#include <utility>

namespace noonward {
namespace {

constexpr std::uint32_t leftButton = 1;
constexpr std::uint32_t rightButton = 3;
constexpr int fractionBits = 16;  // of a place in a window
constexpr const char* noteName = "_NOONWARD_PRESS";

// Whether the window that is told of a press was pressed itself: an open menu is told of those
// elsewhere as well.
bool isInside(const xcb_input_button_press_event_t& press) {
    const QPoint at(press.event_x >> fractionBits, press.event_y >> fractionBits);
    for (const QWindow* window : QGuiApplication::allWindows()) {
        if (!window->handle() || window->winId() != press.event) continue;
        return QRect(QPoint(0, 0), window->size() * window->devicePixelRatio()).contains(at);
    }
    return false;
}

}  // namespace

X11PressesElsewhere::X11PressesElsewhere(X11& x11) : x11_(x11) {
    const auto* extension = xcb_get_extension_data(x11_.connection(), &xcb_input_id);
    if (!extension || !extension->present) return;
    extension_ = extension->major_opcode;
    mailbox_ = xcb_generate_id(x11_.connection());
    x11_.ignoreError(xcb_create_window_checked(
        x11_.connection(), XCB_COPY_FROM_PARENT, mailbox_, x11_.root(), 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr));
}

X11PressesElsewhere::~X11PressesElsewhere() {
    if (mailbox_ == XCB_WINDOW_NONE) return;
    x11_.ignoreError(xcb_destroy_window_checked(x11_.connection(), mailbox_));
    xcb_flush(x11_.connection());
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

void X11PressesElsewhere::whenDecided(std::function<void()> step) {
    if (open_.empty())
        QMetaObject::invokeMethod(&context_, std::move(step), Qt::QueuedConnection);
    else
        waiting_.push_back(std::move(step));
}

void X11PressesElsewhere::select(bool wanted) {
    if (extension_ == 0) return;
    if (wanted) {
        events_ = x11_.onEvent(
            [this](const xcb_generic_event_t& event, std::uint8_t type) { watch(event, type); });
    } else {
        events_.reset();
        open_.clear();
        waiting_.clear();
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

void X11PressesElsewhere::watch(const xcb_generic_event_t& event, std::uint8_t type) {
    if (type == XCB_GE_GENERIC) {
        if (as<xcb_ge_generic_event_t>(event).extension == extension_) watchInput(event);
    } else if (type == XCB_CLIENT_MESSAGE) {
        const auto& note = as<xcb_client_message_event_t>(event);
        if (note.window != mailbox_ || note.type != x11_.atom(noteName)) return;
        if (open_.empty() || open_.front().time != note.data.data32[0]) return;
        const bool isOwn = open_.front().isOwn;
        open_.pop_front();
        if (!isOwn) {
            QMetaObject::invokeMethod(
                &context_, [this] { presses_.announce(); }, Qt::QueuedConnection);
        }
        if (!open_.empty()) return;
        for (auto& step : std::exchange(waiting_, {}))
            QMetaObject::invokeMethod(&context_, std::move(step), Qt::QueuedConnection);
    }
}

void X11PressesElsewhere::watchInput(const xcb_generic_event_t& event) {
    const auto& raw = as<xcb_input_raw_button_press_event_t>(event);
    if (raw.event_type == XCB_INPUT_BUTTON_PRESS) {
        const auto& press = as<xcb_input_button_press_event_t>(event);
        if (!open_.empty() && open_.back().time == press.time)
            open_.back().isOwn |= isInside(press);
    } else if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
               (raw.detail == leftButton || raw.detail == rightButton)) {
        open_.push_back({raw.time, false});
        sendNote(raw.time);
    }
}

// To whoever made the window, which needs no event mask.
void X11PressesElsewhere::sendNote(xcb_timestamp_t time) {
    xcb_client_message_event_t note{};
    note.response_type = XCB_CLIENT_MESSAGE;
    note.format = 32;
    note.window = mailbox_;
    note.type = x11_.atom(noteName);
    note.data.data32[0] = time;
    x11_.ignoreError(xcb_send_event_checked(x11_.connection(), false, mailbox_,
                                            XCB_EVENT_MASK_NO_EVENT,
                                            reinterpret_cast<const char*>(&note)));
    xcb_flush(x11_.connection());
}

}  // namespace noonward
