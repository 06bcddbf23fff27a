#include "platform/wayland/WaylandLayers.h"

#include <wayland-client.h>

#include <QApplication>
#include <QEvent>
#include <QMetaObject>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <vector>

#include "platform/wayland/LayerShell.h"

namespace noonward {
namespace {

constexpr std::uint32_t newestKnown = 4;  // of the protocol's versions
constexpr std::uint32_t sinceSetLayer = 2;
constexpr int mostRounds = 8;
constexpr const char* purpose = "noonward";  // by which users make rules for them

// "On demand", which a click elsewhere would end, some compositors take back at once, and others
// never grant. What stands for the click is `WaylandPressesElsewhere`.
constexpr auto noKeys = ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
constexpr auto allKeys = ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE;

// To Qt an empty region is the whole window.
const QRegion nowhere(-2, -2, 1, 1);

QScreen* screenOf(const QRect& geometry) {
    QScreen* screen = QGuiApplication::screenAt(geometry.center());
    return screen ? screen : QGuiApplication::primaryScreen();
}

QWidget* widgetOf(const QWindow& window) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == &window) return widget;
    return nullptr;
}

}  // namespace

struct WaylandLayers::Surface {
    WaylandLayers* layers;
    QWindow* window;
    wl_surface* surface;
    wl_output* output;
    zwlr_layer_surface_v1* role = nullptr;
    Kind kind = Kind::window;
    bool hasKeys = false;
    std::uint32_t layer = 0;
    QRect at;
    bool configured = false;

    ~Surface() { zwlr_layer_surface_v1_destroy(role); }

    // Size and place, counted from the output's upper left corner.
    void place(const QRect& geometry) {
        const QScreen* screen = screenOf(geometry);
        const QPoint at0 = geometry.topLeft() - (screen ? screen->geometry().topLeft() : QPoint());
        // None at all would mean as wide or high as the screen, and break the protocol here.
        zwlr_layer_surface_v1_set_size(role,
                                       static_cast<std::uint32_t>(std::max(geometry.width(), 1)),
                                       static_cast<std::uint32_t>(std::max(geometry.height(), 1)));
        zwlr_layer_surface_v1_set_margin(role, at0.y(), 0, 0, at0.x());
        at = geometry;
    }

    void setKeys(bool wanted) {
        hasKeys = wanted;
        zwlr_layer_surface_v1_set_keyboard_interactivity(role, wanted ? allKeys : noKeys);
    }

    static void configure(void* self, zwlr_layer_surface_v1* role, std::uint32_t serial,
                          std::uint32_t, std::uint32_t) {
        static_cast<Surface*>(self)->configured = true;
        zwlr_layer_surface_v1_ack_configure(role, serial);
    }
    // Its monitor has gone, or the compositor wants it away. This object goes with that.
    static void closed(void* self, zwlr_layer_surface_v1*) {
        const auto& surface = *static_cast<Surface*>(self);
        surface.layers->showAnew(*surface.window, false);
    }
    static constexpr zwlr_layer_surface_v1_listener listener{configure, closed};
};

void WaylandLayers::prepare() {
    // Qt leaves windows that bypass the window manager without a role, and believes where it is
    // told that they are.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    qputenv("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
}

WaylandLayers::WaylandLayers(Wayland& wayland)
    : wayland_(wayland),
      shell_(wayland.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, newestKnown)) {
    QCoreApplication::instance()->installEventFilter(this);
}

WaylandLayers::~WaylandLayers() {
    surfaces_.clear();
    wl_proxy_destroy(reinterpret_cast<wl_proxy*>(shell_));  // `destroy` came with version 3
}

void WaylandLayers::keep(QWidget& widget, Kind kind) {
    widget.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    widget.setAttribute(Qt::WA_TranslucentBackground);
    widget.setAttribute(Qt::WA_ShowWithoutActivating);
    remember(widget, kind);
}

void WaylandLayers::remember(QWidget& widget, Kind kind) {
    widget.winId();
    QWindow* window = widget.windowHandle();
    kept_.insert_or_assign(window, Kept{kind});
    // Before Qt destroys the surface: the role has to go first.
    connect(window, &QWindow::visibleChanged, this, [this, window](bool visible) {
        if (!visible) drop(*window);
    });
    connect(window, &QObject::destroyed, this, [this, window] {
        surfaces_.erase(window);
        kept_.erase(window);
    });
}

void WaylandLayers::setKeys(QWindow& window, bool wanted) {
    const auto kept = kept_.find(&window);
    if (kept == kept_.end()) return;
    kept->second.keys = wanted;
    const auto shown = surfaces_.find(&window);
    if (shown == surfaces_.end()) return;
    if (shown->second->hasKeys == wanted) return;
    shown->second->setKeys(wanted);
    wl_surface_commit(shown->second->surface);
}

void WaylandLayers::setInputRegion(QWindow& window, const QRegion& region) {
    const QRegion mask = region.isEmpty() ? nowhere : region;
    if (window.mask() == mask) return;
    window.setMask(mask);
    const auto shown = surfaces_.find(&window);
    if (shown == surfaces_.end()) return;
    wl_surface_commit(shown->second->surface);
    if (shown->second->kind == Kind::window) changes_.announce();
}

void WaylandLayers::setAboveFullScreen(bool above) {
    aboveFullScreen_ = above;
    std::vector<QWindow*> all;
    for (const auto& [window, surface] : surfaces_)
        all.push_back(window);
    for (QWindow* window : all)  // to follow may be to go
        follow(*window);
}

QRegion WaylandLayers::where(Kind kind) const {
    QRegion result;
    for (const auto& [window, surface] : surfaces_) {
        if (surface->kind != kind) continue;
        const QRect all(QPoint(), window->size());
        const QRegion inside = window->mask().isEmpty() ? all : window->mask() & all;
        result |= inside.translated(window->position());
    }
    return result;
}

wl_surface* WaylandLayers::surfaceOf(QWindow& window) const {
    const auto shown = surfaces_.find(&window);
    return shown == surfaces_.end() ? nullptr : shown->second->surface;
}

bool WaylandLayers::haveKeys() {
    return QGuiApplication::focusWindow() != nullptr;
}

bool WaylandLayers::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Polish && receiver->isWidgetType())
        takePopup(static_cast<QWidget&>(*receiver));
    if (!receiver->isWindowType()) return false;
    auto& window = static_cast<QWindow&>(*receiver);
    const auto kept = kept_.find(&window);
    if (kept == kept_.end()) return false;
    switch (event->type()) {
        case QEvent::Expose:
            // The last moment before it is painted for the first time, and the first at which it
            // has a surface.
            if (window.isVisible()) show(window, kept->second);
            break;
        case QEvent::Move:
        case QEvent::Resize:
            follow(window);
            break;
        default:
            break;
    }
    return false;
}

// The flag has to be there before the native window is.
void WaylandLayers::takePopup(QWidget& widget) {
    if (!widget.isWindow() || widget.windowHandle()) return;
    const Qt::WindowType type = widget.windowType();
    if (type != Qt::Popup && type != Qt::ToolTip) return;
    widget.setWindowFlag(Qt::BypassWindowManagerHint);
    remember(widget, Kind::popup);
}

// Qt makes a new surface at each showing. It may not have a picture before its role is known.
void WaylandLayers::show(QWindow& window, const Kept& kept) {
    if (surfaces_.contains(&window)) return;
    wl_surface* surface = wayland_.surfaceOf(window);
    QScreen* screen = screenOf(window.geometry());
    if (!surface || !screen) return;

    std::unique_ptr<Surface> shown(new Surface{this, &window, surface, wayland_.outputOf(*screen)});
    auto* shell = static_cast<zwlr_layer_shell_v1*>(wl_proxy_create_wrapper(shell_));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(shell), wayland_.queue());
    shown->kind = kept.kind;
    shown->layer = layerOf(kept.kind);
    shown->role =
        zwlr_layer_shell_v1_get_layer_surface(shell, surface, shown->output, shown->layer, purpose);
    wl_proxy_wrapper_destroy(shell);
    zwlr_layer_surface_v1_add_listener(shown->role, &Surface::listener, shown.get());
    zwlr_layer_surface_v1_set_anchor(
        shown->role, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_exclusive_zone(shown->role, -1);  // over bars, not beside them
    // A menu at a window that does not have the keys needs them itself.
    const bool isMenu = kept.kind == Kind::popup && window.type() == Qt::Popup;
    if (kept.keys || (isMenu && !haveKeys())) shown->setKeys(true);
    shown->place(window.geometry());
    wl_surface_commit(surface);
    surfaces_.emplace(&window, std::move(shown));
    awaitPlace(window);
    changes_.announce();
}

// The compositor may also close it at once.
void WaylandLayers::awaitPlace(QWindow& window) {
    for (int round = 0; round < mostRounds; ++round) {
        if (!wayland_.roundTrip()) return;
        const auto shown = surfaces_.find(&window);
        if (shown == surfaces_.end()) return;
        if (!shown->second->configured) continue;
        return wayland_.handToQt(reinterpret_cast<wl_proxy*>(shown->second->role));
    }
}

void WaylandLayers::follow(QWindow& window) {
    const auto shown = surfaces_.find(&window);
    if (shown == surfaces_.end()) return;
    Surface& surface = *shown->second;
    QScreen* screen = screenOf(window.geometry());
    if (!screen) return;
    // A surface stays on its monitor.
    wl_output* output = wayland_.outputOf(*screen);
    if (output != surface.output) return showAnew(window, true);
    const std::uint32_t layer = layerOf(surface.kind);
    const bool changesLayer =
        layer != surface.layer &&
        wl_proxy_get_version(reinterpret_cast<wl_proxy*>(surface.role)) >= sinceSetLayer;
    if (!changesLayer && window.geometry() == surface.at) return;
    if (changesLayer) zwlr_layer_surface_v1_set_layer(surface.role, surface.layer = layer);
    surface.place(window.geometry());
    wl_surface_commit(surface.surface);
    changes_.announce();
}

void WaylandLayers::drop(QWindow& window) {
    if (surfaces_.erase(&window) == 0) return;
    wl_display_flush(wayland_.display());
    changes_.announce();
}

// Its role is over: it is hidden, and shown again where that is wanted, unless somebody has done so
// by then.
void WaylandLayers::showAnew(QWindow& window, bool again) {
    drop(window);
    const auto step = [this, guard = QPointer<QWindow>(&window), again] {
        QWidget* widget = guard && !surfaces_.contains(guard) ? widgetOf(*guard) : nullptr;
        if (!widget || !widget->isVisible()) return;
        widget->hide();
        if (again) widget->show();
    };
    QMetaObject::invokeMethod(this, step, Qt::QueuedConnection);
}

std::uint32_t WaylandLayers::layerOf(Kind kind) const {
    const bool isHigh =
        kind == Kind::popup || kind == Kind::catcher || (kind == Kind::window && aboveFullScreen_);
    return isHigh ? ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY : ZWLR_LAYER_SHELL_V1_LAYER_TOP;
}

}  // namespace noonward
