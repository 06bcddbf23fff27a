#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

class QScreen;
class QWindow;
struct wl_display;
struct wl_event_queue;
struct wl_interface;
struct wl_output;
struct wl_proxy;
struct wl_registry;
struct wl_surface;

namespace noonward {

/// The connection to the Wayland compositor, which is Qt's own: everything in this folder shares
/// it, and nothing here may take away what Qt has asked for.
class Wayland final {
 public:
    /// Whether Qt is of the version that this was built for, but for mere corrections: what it is
    /// asked for here, it promises to no other.
    static bool knowsQt();
    /// Null when the application does not run on a compositor that has layers.
    static std::unique_ptr<Wayland> connect();
    ~Wayland();

    wl_display* display() const { return display_; }

    /// What the compositor knows a window by: another each time that it is shown, null while it is
    /// not.
    wl_surface* surfaceOf(QWindow& window) const;
    /// Null when the monitor has gone.
    wl_output* outputOf(QScreen& screen) const;

    bool has(const wl_interface& interface) const;
    /// A new object for what the compositor offers under that name, of that version at most; null
    /// where it does not offer it. Its events come by Qt's event loop, or wait in a queue.
    template <typename T>
    T* bind(const wl_interface& interface, std::uint32_t version,
            wl_event_queue* queue = nullptr) const {
        return reinterpret_cast<T*>(bindProxy(interface, version, queue));
    }

    /// Events wait in this queue until `roundTrip`.
    wl_event_queue* queue() const { return queue_; }
    /// Waits until the compositor has answered all that has been asked; the events that come
    /// meanwhile in `queue()` are told. False when the compositor has gone.
    bool roundTrip() const;
    /// From now on the events of an object in `queue()` come by Qt's event loop. Those that wait
    /// are told at once: told by the next `roundTrip` they would come after newer ones.
    void handToQt(wl_proxy* proxy) const;

 private:
    struct Global {
        std::string interface;
        std::uint32_t version;
    };
    struct Listener;

    explicit Wayland(wl_display* display);
    wl_proxy* bindProxy(const wl_interface& interface, std::uint32_t version,
                        wl_event_queue* queue) const;

    wl_display* display_;
    wl_event_queue* queue_;
    wl_registry* registry_;
    std::map<std::uint32_t, Global> globals_;  // by their names, which are numbers
};

}  // namespace noonward
