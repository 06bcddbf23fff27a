#include "platform/wayland/WaylandProbe.h"

#include <wayland-client.h>

#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/wayland/LayerShell.h"

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

}  // namespace

bool compositorHasLayers() {
    // A socket that is handed over serves for one connection, which the application needs.
    if (std::getenv("WAYLAND_SOCKET")) return false;
    const std::unique_ptr<wl_display, Disconnect> display(wl_display_connect(nullptr));
    if (!display) return false;
    bool found = false;
    wl_registry* registry = wl_display_get_registry(display.get());
    wl_registry_add_listener(registry, &listener, &found);
    wl_display_roundtrip(display.get());
    wl_registry_destroy(registry);
    return found;
}

}  // namespace noonward
