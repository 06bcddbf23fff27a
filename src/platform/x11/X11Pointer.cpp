#include "platform/x11/X11Pointer.h"

#include <QMetaObject>
#include <utility>

#include "platform/x11/X11Geometry.h"

namespace noonward {
namespace {

constexpr std::uint8_t alphaDepth = 32;
constexpr std::uint32_t crossings =
    XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_POINTER_MOTION;

const xcb_screen_t* screenOf(const X11& x11) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(x11.connection()));
    for (; screens.rem > 0; xcb_screen_next(&screens))
        if (screens.data->root == x11.root()) return screens.data;
    return nullptr;
}

// The visual whose pixels have an alpha channel; none on servers without.
xcb_visualid_t alphaVisual(const X11& x11) {
    const xcb_screen_t* screen = screenOf(x11);
    if (!screen) return XCB_NONE;
    auto depths = xcb_screen_allowed_depths_iterator(screen);
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        if (depths.data->depth != alphaDepth) continue;
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem > 0; xcb_visualtype_next(&visuals))
            if (visuals.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR) return visuals.data->visual_id;
    }
    return XCB_NONE;
}

xcb_window_t create(const X11& x11, const QRect& at, std::uint8_t depth, std::uint16_t kind,
                    xcb_visualid_t visual, std::uint32_t mask, const std::uint32_t* values) {
    const xcb_window_t window = xcb_generate_id(x11.connection());
    x11.ignoreError(xcb_create_window_checked(
        x11.connection(), depth, window, x11.root(), static_cast<std::int16_t>(at.x()),
        static_cast<std::int16_t>(at.y()), static_cast<std::uint16_t>(at.width()),
        static_cast<std::uint16_t>(at.height()), 0, kind, visual, mask, values));
    return window;
}

}  // namespace

X11Pointer::X11Pointer(X11& x11, X11Stack& stack) : x11_(x11), stack_(stack) {
    if (x11_.insideWayland()) presence_ = std::make_unique<PointerPresence>();
    events_ = x11_.onEvent(
        [this](const xcb_generic_event_t& event, std::uint8_t type) { watch(event, type); });
    compositor_ = x11_.compositorChanges().subscribe([this] {
        if (trigger_ == XCB_WINDOW_NONE) return;
        disarm();
        if (entered_) arm();
    });
}

X11Pointer::~X11Pointer() {
    disarm();
    if (colormap_ != XCB_NONE) xcb_free_colormap(x11_.connection(), colormap_);
}

std::optional<QPointF> X11Pointer::position() const {
    const auto at = pixel();
    return at ? std::optional(toPoints(*at)) : std::nullopt;
}

bool X11Pointer::isKnown() const {
    return !presence_ || presence_->inside() || isInTrigger_;
}

std::optional<QPoint> X11Pointer::pixel() const {
    if (!isKnown()) return std::nullopt;
    const auto cookie = xcb_query_pointer(x11_.connection(), x11_.root());
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(x11_.connection(), cookie, nullptr));
    if (!pointer || !pointer->same_screen) return std::nullopt;
    return QPoint(pointer->root_x, pointer->root_y);
}

void X11Pointer::waitFor(const QRectF& zone, std::function<void()> entered) {
    stopWaiting();
    disarm();
    zone_ = zone;
    entered_ = std::move(entered);
    arm();
}

void X11Pointer::stopWaiting() {
    ++waits_;
    entered_ = nullptr;
    if (!isInTrigger_) disarm();
}

void X11Pointer::watch(const xcb_generic_event_t& event, std::uint8_t type) {
    const bool isOfPointer =
        type == XCB_ENTER_NOTIFY || type == XCB_LEAVE_NOTIFY || type == XCB_MOTION_NOTIFY;
    if (!isOfPointer || trigger_ == XCB_WINDOW_NONE) return;
    const auto& crossing = as<xcb_enter_notify_event_t>(event);  // motion lies alike
    if (crossing.event != trigger_) return;
    if (presence_) return watchInsideWayland(crossing, type);
    if (type == XCB_LEAVE_NOTIFY) return;
    disarm();
    enteredZone();
}

/// A window that is mapped where the server saw the pointer last is entered, wherever the pointer
/// is by now: that proves nothing.
void X11Pointer::watchInsideWayland(const xcb_enter_notify_event_t& event, std::uint8_t type) {
    if (type == XCB_MOTION_NOTIFY) {
        if (!std::exchange(isInTrigger_, true)) enteredZone();
    } else if (type == XCB_LEAVE_NOTIFY) {
        // Into another X window, or out of all of them: to the root.
        if (std::exchange(isInTrigger_, false) && event.detail == XCB_NOTIFY_DETAIL_NONLINEAR)
            presence_->handOver();
        if (!entered_) disarm();
    }
}

void X11Pointer::enteredZone() {
    const auto call = [this, wait = waits_] {
        if (wait != waits_) return;
        if (const auto entered = std::exchange(entered_, nullptr)) entered();
    };
    QMetaObject::invokeMethod(&context_, call, Qt::QueuedConnection);
}

void X11Pointer::arm() {
    const QRect pixels = toPixels(zone_);
    if (pixels.isEmpty()) return;
    const auto now = pixel();
    if (now && pixels.contains(*now)) return enteredZone();
    // A compositor does not draw around an InputOnly window, it ignores it; and without one
    // there is no transparency, only black.
    trigger_ = x11_.compositing() ? makeTransparent(pixels) : makeInputOnly(pixels);
    nameType();
    stack_.keep(trigger_, X11Stack::Layer::trigger);
    // Mapped under the pointer it is entered at once.
    x11_.ignoreError(xcb_map_window_checked(x11_.connection(), trigger_));
    xcb_flush(x11_.connection());
}

// Compositors give the keyboard to windows that name no type.
void X11Pointer::nameType() const {
    const std::uint32_t utility = x11_.atom("_NET_WM_WINDOW_TYPE_UTILITY");
    x11_.ignoreError(xcb_change_property_checked(x11_.connection(), XCB_PROP_MODE_REPLACE, trigger_,
                                                 x11_.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                                                 32, 1, &utility));
}

void X11Pointer::disarm() {
    isInTrigger_ = false;
    const xcb_window_t window = std::exchange(trigger_, XCB_WINDOW_NONE);
    if (window == XCB_WINDOW_NONE) return;
    stack_.forget(window);
    x11_.ignoreError(xcb_destroy_window_checked(x11_.connection(), window));
    xcb_flush(x11_.connection());
}

xcb_window_t X11Pointer::makeInputOnly(const QRect& pixels) {
    const std::uint32_t values[] = {true, crossings};
    return create(x11_, pixels, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                  XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
}

xcb_window_t X11Pointer::makeTransparent(const QRect& pixels) {
    const xcb_visualid_t visual = alphaVisual(x11_);
    if (visual == XCB_NONE) return makeInputOnly(pixels);
    if (colormap_ == XCB_NONE) {
        colormap_ = xcb_generate_id(x11_.connection());
        x11_.ignoreError(xcb_create_colormap_checked(x11_.connection(), XCB_COLORMAP_ALLOC_NONE,
                                                     colormap_, x11_.root(), visual));
    }
    const std::uint32_t transparent = 0;
    const std::uint32_t values[] = {transparent, transparent, true, crossings, colormap_};
    return create(x11_, pixels, alphaDepth, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                  XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                      XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                  values);
}

}  // namespace noonward
