#include "platform/wayland/WaylandProbe.h"

#include <wayland-client.h>

#include <QCoreApplication>
#include <QDir>
#include <cstdarg>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/wayland/LayerShell.h"
#include "platform/wayland/Wayland.h"

namespace noonward {
namespace {

struct Disconnect {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
};

void look(void* found, wl_registry*, std::uint32_t, const char* interface, std::uint32_t) {
    if (std::string_view(interface) == zwlr_layer_shell_v1_interface.name)
        *static_cast<bool*>(found) = true;
}
void ignore(void*, wl_registry*, std::uint32_t) {}
constexpr wl_registry_listener listener{look, ignore};

bool hasLayers(wl_display* display) {
    bool found = false;
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &listener, &found);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    return found;
}

// Qt's plugin for Wayland is in a package of its own.
bool hasWaylandPlugin() {
    for (const QString& folder : QCoreApplication::libraryPaths()) {
        const QDir platforms(folder + QStringLiteral("/platforms"));
        if (!platforms.entryList({QStringLiteral("libqwayland*.so")}, QDir::Files).isEmpty())
            return true;
    }
    return false;
}

}  // namespace

std::string whyNotWayland() {
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) return "WAYLAND_DISPLAY is not set";
    if (!hasWaylandPlugin()) return "Qt's plugin for Wayland is not installed";
    if (!Wayland::knowsQt()) return "Qt is of another version than the program was built for";
    // A socket that is handed over serves for one connection, which the application needs.
    if (std::getenv("WAYLAND_SOCKET")) return "the Wayland connection is handed over";
    // The library would write to the standard error.
    wl_log_set_handler_client([](const char*, va_list) {});
    const std::unique_ptr<wl_display, Disconnect> display(wl_display_connect(nullptr));
    if (!display) return "the Wayland display cannot be opened";
    if (!hasLayers(display.get())) return "the Wayland desktop does not let programs place windows";
    return {};
}

}  // namespace noonward
