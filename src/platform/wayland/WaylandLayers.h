#pragma once

#include <QObject>
#include <QRegion>
#include <cstdint>
#include <map>
#include <memory>

#include "base/Published.h"
#include "platform/wayland/Wayland.h"

class QWidget;
class QWindow;
struct zwlr_layer_shell_v1;

namespace noonward {

/// Has our windows shown as surfaces along the screens' edges (wlr-layer-shell-unstable-v1): at
/// their exact places, above other programs' windows, on every workspace. Qt paints them and hears
/// their events as ever; that no window manager touches them makes Qt leave their role to us.
///
/// Menus and tooltips, wherever they come from, are shown like that too.
///
/// In which order surfaces of the same layer lie is not told, and differs. So no two of ours are to
/// meet the pointer at the same place in one layer, and menus and tooltips have a higher one.
class WaylandLayers final : public QObject {
 public:
    enum class Kind {
        trigger,  ///< sees the pointer come; nobody sees it
        catcher,  ///< takes presses beside our windows; nobody sees it
        window,
        popup  ///< a menu or a tooltip
    };

    explicit WaylandLayers(Wayland& wayland);  ///< which must outlive this object
    ~WaylandLayers() override;

    /// What comes before Qt's application object.
    static void prepare();

    /// From its next showing on the widget, which has no native window yet, is a surface of that
    /// kind. Sets its window flags and makes its native window. It may be gone before this object.
    void keep(QWidget& widget, Kind kind);

    /// Whether the keyboard is to come to the window when it is shown, or now if it is.
    void setKeys(QWindow& window, bool wanted);
    /// Only presses inside `region` (window points) meet it; an empty one lets all of them through.
    void setInputRegion(QWindow& window, const QRegion& region);
    /// Whether our windows are above programs that fill the screen; those that are shown follow.
    void setAboveFullScreen(bool above);

    /// Where the pointer can meet what is shown of that kind, in desktop points.
    QRegion where(Kind kind) const;
    /// Null while it is not shown.
    wl_surface* surfaceOf(QWindow& window) const;
    /// One has come, gone, moved or taken another region.
    Announcer& changes() { return changes_; }

    /// Whether one of our windows has the keyboard.
    static bool haveKeys();

 private:
    struct Kept {
        Kind kind;
        bool keys = false;
    };
    struct Surface;

    bool eventFilter(QObject* receiver, QEvent* event) override;
    void remember(QWidget& widget, Kind kind);
    void takePopup(QWidget& widget);
    void show(QWindow& window, const Kept& kept);
    void awaitPlace(QWindow& window);
    void follow(QWindow& window);
    void drop(QWindow& window);
    void showAnew(QWindow& window, bool again);
    std::uint32_t layerOf(Kind kind) const;

    Wayland& wayland_;
    zwlr_layer_shell_v1* shell_;
    std::map<QWindow*, Kept> kept_;
    std::map<QWindow*, std::unique_ptr<Surface>> surfaces_;  // of those that are shown
    bool aboveFullScreen_ = false;
    Announcer changes_;
};

}  // namespace noonward
