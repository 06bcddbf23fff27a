#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "platform/PressesElsewhere.h"
#include "platform/wayland/WaylandLayers.h"

class QWidget;

namespace noonward {

/// A Wayland compositor tells no program of presses in others. So while somebody listens, or a menu
/// is open, every screen is covered by a surface that nobody sees, with holes where our windows
/// are. The press that meets it is eaten: no other program hears of it.
class WaylandPressesElsewhere final : public QObject, public PressesElsewhere {
 public:
    explicit WaylandPressesElsewhere(WaylandLayers& layers);  ///< which must outlive this object
    ~WaylandPressesElsewhere() override;
    [[nodiscard]] Subscription onPress(std::function<void()> action) override;

    /// The keyboard has left for another program, which counts as a press there.
    void keysLeft() { presses_.announce(); }

 private:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void follow();
    void cover();
    void digHoles();

    WaylandLayers& layers_;
    std::vector<std::unique_ptr<QWidget>> catchers_;  // one a screen, while they are wanted
    int listeners_ = 0;
    Announcer presses_;
    Subscription changes_;
};

}  // namespace noonward
