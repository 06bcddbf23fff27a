#include "platform/wayland/WaylandWindowSystem.h"

#include <kde-blur.h>
#include <wayland-client.h>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>
#include <chrono>
#include <utility>

#include "platform/wayland/FullScreenPrograms.h"

namespace noonward {
namespace {

// On its way from one of our windows to another the keyboard is nowhere for a moment.
constexpr std::chrono::milliseconds handOver(50);

}  // namespace

WaylandWindowSystem::WaylandWindowSystem(Wayland& wayland, WaylandLayers& layers,
                                         WaylandPressesElsewhere& presses)
    : wayland_(wayland),
      layers_(layers),
      presses_(presses),
      compositor_(wayland.bind<wl_compositor>(wl_compositor_interface, 1)) {
    settling_.setSingleShot(true);
    settling_.setInterval(handOver);
    settling_.callOnTimeout([this] {
        if (keys_ && !WaylandLayers::haveKeys()) presses_.keysLeft();
    });
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &context_,
                     [this](QWindow* focus) { followFocus(focus); });
    changes_ = layers_.changes().subscribe([this] {
        for (auto& [window, blur] : blurs_)
            this->blur(*window, blur);
    });
}

WaylandWindowSystem::~WaylandWindowSystem() {
    for (const auto& [window, blur] : blurs_)
        if (blur.blur) org_kde_kwin_blur_release(blur.blur);
    if (manager_) org_kde_kwin_blur_manager_destroy(manager_);
    wl_compositor_destroy(compositor_);
}

// KWin offers it while its blur effect is switched on.
WindowSystem::Translucency WaylandWindowSystem::translucency() const {
    return wayland_.has(org_kde_kwin_blur_manager_interface) ? Translucency::blurred
                                                             : Translucency::clear;
}

void WaylandWindowSystem::adopt(QWidget& window, Level) {
    layers_.keep(window, WaylandLayers::Kind::window);
}

void WaylandWindowSystem::setInputRegion(QWidget& window, const QRegion& region) {
    layers_.setInputRegion(*window.windowHandle(), region);
}

void WaylandWindowSystem::setBlurBehind(QWidget& widget, const QRegion& region) {
    QWindow* window = widget.windowHandle();
    const auto [entry, isNew] = blurs_.try_emplace(window);
    if (isNew)
        QObject::connect(window, &QObject::destroyed, &context_, [this, window] {
            if (auto* blur = blurs_[window].blur) org_kde_kwin_blur_release(blur);
            blurs_.erase(window);
        });
    entry->second.region = region;
    entry->second.surface = nullptr;
    blur(*window, entry->second);
}

// The surface that is shown has what was asked for the window, whichever surface that is by now.
void WaylandWindowSystem::blur(QWindow& window, Blur& blur) {
    wl_surface* surface = layers_.surfaceOf(window);
    if (surface == blur.surface) return;
    if (blur.blur) org_kde_kwin_blur_release(std::exchange(blur.blur, nullptr));
    blur.surface = surface;
    const bool canBlur = translucency() == Translucency::blurred;
    if (!canBlur && manager_) org_kde_kwin_blur_manager_destroy(std::exchange(manager_, nullptr));
    if (!surface || !canBlur) return;
    if (!manager_)
        manager_ = wayland_.bind<org_kde_kwin_blur_manager>(org_kde_kwin_blur_manager_interface, 1);
    if (blur.region.isEmpty()) {
        org_kde_kwin_blur_manager_unset(manager_, surface);
    } else {
        wl_region* region = wl_compositor_create_region(compositor_);
        for (const QRect& rect : blur.region)
            wl_region_add(region, rect.x(), rect.y(), rect.width(), rect.height());
        blur.blur = org_kde_kwin_blur_manager_create(manager_, surface);
        org_kde_kwin_blur_set_region(blur.blur, region);
        org_kde_kwin_blur_commit(blur.blur);
        wl_region_destroy(region);
    }
    wl_surface_commit(surface);
}

void WaylandWindowSystem::takeKeys(QWidget& widget) {
    QWindow* window = widget.windowHandle();
    if (std::exchange(keys_, window) != window) {
        hadKeys_ = false;
        layers_.setAboveFullScreen(isScreenFilled(wayland_));
    }
    layers_.setKeys(*window, true);
}

// The compositor remembers who had them.
void WaylandWindowSystem::giveKeysBack(QWidget& widget) {
    if (keys_ != widget.windowHandle()) return;
    keys_ = nullptr;
    hadKeys_ = false;
    settling_.stop();
    layers_.setKeys(*widget.windowHandle(), false);
    layers_.setAboveFullScreen(false);
}

// Nothing else tells of what the user does elsewhere by key.
void WaylandWindowSystem::followFocus(const QWindow* focus) {
    if (!keys_) return;
    if (focus == keys_) hadKeys_ = true;
    if (focus)
        settling_.stop();
    else if (hadKeys_)
        settling_.start();
}

}  // namespace noonward
