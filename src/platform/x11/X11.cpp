#include "platform/x11/X11.h"

#include <xcb/xfixes.h>
#include <xcb/xinput.h>

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace noonward {
namespace {

constexpr std::uint8_t sentFlag = 0x80;  // another program sent it

// When an event says that it happened; XCB_CURRENT_TIME for one that does not.
xcb_timestamp_t timeOf(const xcb_generic_event_t& event, std::uint8_t type, std::uint8_t input) {
    switch (type) {
        case XCB_GE_GENERIC:  // XInput's lie alike up to the time, too
            return as<xcb_ge_generic_event_t>(event).extension == input
                       ? as<xcb_input_button_press_event_t>(event).time
                       : XCB_CURRENT_TIME;
        case XCB_KEY_PRESS:
        case XCB_KEY_RELEASE:
        case XCB_BUTTON_PRESS:
        case XCB_BUTTON_RELEASE:
        case XCB_MOTION_NOTIFY:
        case XCB_ENTER_NOTIFY:
        case XCB_LEAVE_NOTIFY:
            return as<xcb_key_press_event_t>(event).time;  // all lie alike up to the time
        case XCB_PROPERTY_NOTIFY:
            return as<xcb_property_notify_event_t>(event).time;
        default:
            return XCB_CURRENT_TIME;
    }
}

// The kinds of an XKB event, its second byte (XKB protocol, 16).
constexpr std::uint8_t newKeyboardNotify = 0;
constexpr std::uint8_t mapNotify = 1;

xcb_screen_t* screenAt(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

}  // namespace

std::unique_ptr<X11> X11::connect(std::optional<bool> insideWayland) {
    const auto* native =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!native || !native->connection()) return nullptr;
    int number = 0;
    char* name = nullptr;
    int display = 0;
    if (xcb_parse_display(nullptr, &name, &display, &number)) std::free(name);
    const xcb_screen_t* screen = screenAt(native->connection(), number);
    if (!screen) return nullptr;
    std::unique_ptr<X11> result(new X11(native->connection(), screen->root, number));
    result->insideWayland_ = insideWayland ? *insideWayland : result->isInsideWayland();
    return result;
}

X11::X11(xcb_connection_t* connection, xcb_window_t root, int screen)
    : connection_(connection),
      root_(root),
      compositorSelection_("_NET_WM_CM_S" + std::to_string(screen)) {
    const auto* input = xcb_get_extension_data(connection_, &xcb_input_id);
    if (input && input->present) input_ = input->major_opcode;
    watchCompositor();
    watchKeymap();
    qGuiApp->installNativeEventFilter(this);
    // Qt may select the root's events anew for a new monitor, without ours.
    QObject::connect(
        qGuiApp, &QGuiApplication::screenAdded, &context_, [this] { selectRootEvents(); },
        Qt::QueuedConnection);
}

X11::~X11() {
    if (qGuiApp) qGuiApp->removeNativeEventFilter(this);
}

// Servers of recent years say it by an extension; older ones only by the names of their monitors.
bool X11::isInsideWayland() const {
    const auto told = extension("XWAYLAND");
    if (told && told->present) return true;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen && screen->name().startsWith(QLatin1String("XWAYLAND"));
}

xcb_atom_t X11::atom(const std::string& name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end()) return known->second;
    const auto cookie =
        xcb_intern_atom(connection_, false, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    if (!reply) return XCB_ATOM_NONE;
    return atoms_[name] = reply->atom;
}

bool X11::isOurs(xcb_window_t window) const {
    // A client's resources all carry the number that the server gave it.
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

bool X11::compositing() {
    const auto cookie = xcb_get_selection_owner(connection_, atom(compositorSelection_));
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11::watchCompositor() {
    const auto* extension = xcb_get_extension_data(connection_, &xcb_xfixes_id);
    if (!extension || !extension->present) return;
    selectionEvent_ = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    ignoreError(xcb_xfixes_select_selection_input_checked(
        connection_, root_, atom(compositorSelection_),
        XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
            XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
            XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE));
}

// Qt has asked the server for these notices: it needs them itself.
void X11::watchKeymap() {
    const auto keyboard = extension("XKEYBOARD");
    if (keyboard && keyboard->present) keyboardEvent_ = keyboard->first_event;
}

Reply<xcb_query_extension_reply_t> X11::extension(std::string_view name) const {
    const auto cookie =
        xcb_query_extension(connection_, static_cast<std::uint16_t>(name.size()), name.data());
    return Reply<xcb_query_extension_reply_t>(
        xcb_query_extension_reply(connection_, cookie, nullptr));
}

bool X11::isKeymapChange(const xcb_generic_event_t& event, std::uint8_t type) const {
    if (type == XCB_MAPPING_NOTIFY) return true;
    return type == keyboardEvent_ && (event.pad0 == newKeyboardNotify || event.pad0 == mapNotify);
}

void X11::addRootEvents(std::uint32_t mask) {
    rootEvents_ |= mask;
    selectRootEvents();
}

void X11::selectRootEvents() {
    if (rootEvents_ == 0) return;
    const auto cookie = xcb_get_window_attributes(connection_, root_);
    const Reply<xcb_get_window_attributes_reply_t> now(
        xcb_get_window_attributes_reply(connection_, cookie, nullptr));
    if (!now) return;
    const std::uint32_t mask = now->your_event_mask | rootEvents_;
    if (mask == now->your_event_mask) return;
    ignoreError(xcb_change_window_attributes_checked(connection_, root_, XCB_CW_EVENT_MASK, &mask));
    xcb_flush(connection_);
}

Subscription X11::onEvent(Handler handler) {
    return events_.subscribe([this, handler = std::move(handler)] {
        const auto type = static_cast<std::uint8_t>(current_->response_type & ~sentFlag);
        handler(*current_, type);
    });
}

void X11::ignoreError(xcb_void_cookie_t cookie) const {
    xcb_discard_reply(connection_, cookie.sequence);
}

bool X11::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto type = static_cast<std::uint8_t>(event->response_type & ~sentFlag);
    const bool isSent = event->response_type != type;
    const xcb_timestamp_t time = isSent ? XCB_CURRENT_TIME : timeOf(*event, type, input_);
    if (time != XCB_CURRENT_TIME) lastTime_ = time;

    if (isKeymapChange(*event, type)) keymapChanges_.announce();
    const auto* outer = std::exchange(current_, event);
    events_.announce();
    current_ = outer;

    if (type == selectionEvent_ &&
        as<xcb_xfixes_selection_notify_event_t>(*event).selection == atom(compositorSelection_))
        QMetaObject::invokeMethod(
            &context_, [this] { compositorChanges_.announce(); }, Qt::QueuedConnection);
    return false;
}

}  // namespace noonward
