#include "platform/wayland/FullScreenPrograms.h"

#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1.h>

#include <algorithm>
#include <vector>

#include "platform/wayland/Wayland.h"

namespace noonward {
namespace {

using Manager = zwlr_foreign_toplevel_manager_v1;
using Handle = zwlr_foreign_toplevel_handle_v1;

constexpr std::uint32_t sinceFullScreen = 2;

struct Windows {
    std::vector<Handle*> handles;
    bool anyFillsScreen = false;
};

void state(void* windows, Handle*, wl_array* states) {
    const auto* first = static_cast<const std::uint32_t*>(states->data);
    const auto* last = first + states->size / sizeof *first;
    if (std::find(first, last, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN) != last)
        static_cast<Windows*>(windows)->anyFillsScreen = true;
}
void ignoreText(void*, Handle*, const char*) {}
void ignoreOutput(void*, Handle*, wl_output*) {}
void ignore(void*, Handle*) {}
constexpr zwlr_foreign_toplevel_handle_v1_listener windowListener{.title = ignoreText,
                                                                  .app_id = ignoreText,
                                                                  .output_enter = ignoreOutput,
                                                                  .output_leave = ignoreOutput,
                                                                  .state = state,
                                                                  .done = ignore,
                                                                  .closed = ignore};

void take(void* windows, Manager*, Handle* handle) {
    static_cast<Windows*>(windows)->handles.push_back(handle);
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &windowListener, windows);
}
void finish(void*, Manager*) {}
constexpr zwlr_foreign_toplevel_manager_v1_listener managerListener{take, finish};

}  // namespace

bool isScreenFilled(const Wayland& wayland) {
    auto* manager = wayland.bind<Manager>(zwlr_foreign_toplevel_manager_v1_interface,
                                          sinceFullScreen, wayland.queue());
    if (!manager) return false;
    Windows windows;
    zwlr_foreign_toplevel_manager_v1_add_listener(manager, &managerListener, &windows);
    wayland.roundTrip();
    for (Handle* handle : windows.handles)
        zwlr_foreign_toplevel_handle_v1_destroy(handle);
    zwlr_foreign_toplevel_manager_v1_stop(manager);
    zwlr_foreign_toplevel_manager_v1_destroy(manager);
    return windows.anyFillsScreen;
}

}  // namespace noonward
