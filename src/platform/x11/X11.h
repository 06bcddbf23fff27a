#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Published.h"

namespace noonward {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// What the X server answered; null if it refused or is gone.
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// The connection to the X server, which is Qt's own: everything in this folder shares it, and
/// nothing here may take away what Qt has asked the server for.
class X11 final : private QAbstractNativeEventFilter {
 public:
    /// Null when the application does not run on an X server. The server tells by itself whether
    /// it is inside a Wayland compositor, unless that is given.
    static std::unique_ptr<X11> connect(std::optional<bool> insideWayland = std::nullopt);
    ~X11() override;

    xcb_connection_t* connection() const { return connection_; }
    xcb_window_t root() const { return root_; }

    /// The server is one that lives inside a Wayland compositor: it knows the pointer and the
    /// keyboard only while they are in X windows.
    bool insideWayland() const { return insideWayland_; }

    xcb_atom_t atom(const std::string& name);

    /// Whether a window was made by this process: every one of Qt's, menus and tooltips included.
    bool isOurs(xcb_window_t window) const;

    /// Server time of the latest event, for requests that must say when they were due
    /// (ICCCM 4.1.7); XCB_CURRENT_TIME before the first.
    xcb_timestamp_t lastTime() const { return lastTime_; }

    /// Whether a compositing manager is there (EWMH, _NET_WM_CM_Sn), asked at each call.
    bool compositing();
    /// A compositing manager has come or gone.
    Announcer& compositorChanges() { return compositorChanges_; }

    /// The keymap or the meaning of its modifiers has changed; told before the keys that follow.
    Announcer& keymapChanges() { return keymapChanges_; }

    /// Asks for more events of the root window than are selected already.
    void addRootEvents(std::uint32_t mask);

    /// Calls back with each event before Qt sees it; response types are without the bit that
    /// marks events sent by other programs. Handlers hand on what they decide to the event loop.
    using Handler = std::function<void(const xcb_generic_event_t& event, std::uint8_t type)>;
    [[nodiscard]] Subscription onEvent(Handler handler);

    /// Forgets a request's error when it comes; its cookie is from a `_checked` call.
    void ignoreError(xcb_void_cookie_t cookie) const;

 private:
    X11(xcb_connection_t* connection, xcb_window_t root, int screen);
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    Reply<xcb_query_extension_reply_t> extension(std::string_view name) const;
    bool isInsideWayland() const;
    void selectRootEvents();
    void watchCompositor();
    void watchKeymap();
    bool isKeymapChange(const xcb_generic_event_t& event, std::uint8_t type) const;

    xcb_connection_t* connection_;
    xcb_window_t root_;
    bool insideWayland_ = false;
    std::string compositorSelection_;
    std::map<std::string, xcb_atom_t> atoms_;
    std::uint32_t rootEvents_ = 0;
    xcb_timestamp_t lastTime_ = XCB_CURRENT_TIME;
    int selectionEvent_ = -1;  // the type of XFixes' notices; -1 without XFixes
    int keyboardEvent_ = -1;   // the type of XKB's; -1 without XKB
    std::uint8_t input_ = 0;   // XInput's number; 0 without it
    const xcb_generic_event_t* current_ = nullptr;
    Announcer events_;
    Announcer compositorChanges_;
    Announcer keymapChanges_;
    QObject context_;
};

/// Reads an event as what its type says it is.
template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

}  // namespace noonward
