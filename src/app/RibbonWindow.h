#pragma once

#include <QRasterWindow>
#include <array>

#include "base/Published.h"
#include "kit/Placed.h"
#include "kit/Tiles.h"
#include "views/ribbon/RibbonPanel.h"

namespace noonward {

/// The ribbon in an ordinary window of its size, always up to date; for looking at.
class RibbonWindow final : public QRasterWindow {
 public:
    /// Closing it ends the program, as the last window does.
    RibbonWindow(Store& store, NotchUI& ui);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void rebuild();
    void rebuildSoon();

    RibbonPanel panel_;
    kit::Placed placed_;
    kit::Tiles tiles_;
    bool pending_ = false;
    std::array<Subscription, 3> watches_;
};

}  // namespace noonward
