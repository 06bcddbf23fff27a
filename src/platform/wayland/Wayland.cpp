#include "platform/wayland/Wayland.h"

#include <wayland-client.h>

#include <QGuiApplication>
#include <QScreen>
#include <QVersionNumber>
#include <QWindow>
#include <algorithm>

// Private to Qt, and the only such header in the program: before Qt 6.5 nothing else tells which
// connection is Qt's, and in no version so far which surface a window has. It declares an abstract
// class that has been the same since Qt 5.
#include <qpa/qplatformnativeinterface.h>

#include "platform/wayland/LayerShell.h"

namespace noonward {

struct Wayland::Listener {
    static void come(void* wayland, wl_registry*, std::uint32_t name, const char* interface,
                     std::uint32_t version) {
        static_cast<Wayland*>(wayland)->globals_[name] = {interface, version};
    }
    static void gone(void* wayland, wl_registry*, std::uint32_t name) {
        static_cast<Wayland*>(wayland)->globals_.erase(name);
    }
    static constexpr wl_registry_listener registry{come, gone};
};

bool Wayland::knowsQt() {
    const QVersionNumber running = QVersionNumber::fromString(QString::fromLatin1(qVersion()));
    return running.majorVersion() == QT_VERSION_MAJOR && running.minorVersion() == QT_VERSION_MINOR;
}

std::unique_ptr<Wayland> Wayland::connect() {
    auto* native = QGuiApplication::platformNativeInterface();
    if (!native || !QGuiApplication::platformName().startsWith("wayland")) return nullptr;
    auto* display = static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display"));
    if (!display) return nullptr;
    std::unique_ptr<Wayland> wayland(new Wayland(display));
    return wayland->has(zwlr_layer_shell_v1_interface) ? std::move(wayland) : nullptr;
}

Wayland::Wayland(wl_display* display)
    : display_(display), queue_(wl_display_create_queue(display)) {
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display_));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue_);
    registry_ = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry_, &Listener::registry, this);
    roundTrip();
    handToQt(reinterpret_cast<wl_proxy*>(registry_));
}

Wayland::~Wayland() {
    wl_registry_destroy(registry_);
    wl_event_queue_destroy(queue_);
}

wl_surface* Wayland::surfaceOf(QWindow& window) const {
    auto* native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
}

wl_output* Wayland::outputOf(QScreen& screen) const {
    auto* native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_output*>(native->nativeResourceForScreen("output", &screen));
}

bool Wayland::has(const wl_interface& interface) const {
    return std::any_of(globals_.begin(), globals_.end(),
                       [&](const auto& entry) { return entry.second.interface == interface.name; });
}

wl_proxy* Wayland::bindProxy(const wl_interface& interface, std::uint32_t version,
                             wl_event_queue* queue) const {
    for (const auto& [name, global] : globals_) {
        if (global.interface != interface.name) continue;
        auto* proxy = static_cast<wl_proxy*>(
            wl_registry_bind(registry_, name, &interface, std::min(version, global.version)));
        wl_proxy_set_queue(proxy, queue);
        return proxy;
    }
    return nullptr;
}

bool Wayland::roundTrip() const {
    return wl_display_roundtrip_queue(display_, queue_) >= 0;
}

void Wayland::handToQt(wl_proxy* proxy) const {
    wl_proxy_set_queue(proxy, nullptr);
    wl_display_dispatch_queue_pending(display_, queue_);
}

}  // namespace noonward
