#pragma once

#include <QPointer>
#include <QTimer>
#include <map>

#include "platform/WindowSystem.h"
#include "platform/wayland/WaylandLayers.h"
#include "platform/wayland/WaylandPressesElsewhere.h"

struct org_kde_kwin_blur;
struct org_kde_kwin_blur_manager;
struct wl_compositor;

namespace noonward {

/// Windows as surfaces of a Wayland compositor's layers, which are translucent always.
class WaylandWindowSystem final : public WindowSystem {
 public:
    /// All must outlive this object.
    WaylandWindowSystem(Wayland& wayland, WaylandLayers& layers, WaylandPressesElsewhere& presses);
    ~WaylandWindowSystem() override;

    Translucency translucency() const override;
    void adopt(QWidget& window, Level level) override;
    /// Within their layer no order is told: ours do not overlap.
    void raise(QWidget&) override {}
    void setInputRegion(QWidget& window, const QRegion& region) override;
    void setBlurBehind(QWidget& window, const QRegion& region) override;
    void takeKeys(QWidget& window) override;
    void giveKeysBack(QWidget& window) override;

 private:
    struct Blur {
        QRegion region;
        wl_surface* surface = nullptr;  // that has it
        org_kde_kwin_blur* blur = nullptr;
    };

    void followFocus(const QWindow* focus);
    void blur(QWindow& window, Blur& blur);

    Wayland& wayland_;
    WaylandLayers& layers_;
    WaylandPressesElsewhere& presses_;
    wl_compositor* compositor_;
    org_kde_kwin_blur_manager* manager_ = nullptr;  // since a blur was asked for
    std::map<QWindow*, Blur> blurs_;
    QPointer<QWindow> keys_;  // that is to have them
    bool hadKeys_ = false;
    QTimer settling_;
    QObject context_;
    Subscription changes_;
};

}  // namespace noonward
