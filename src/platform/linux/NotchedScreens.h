#pragma once

#include "platform/QtScreens.h"
#include "platform/linux/NotchedLaptops.h"

namespace noonward {

/// The monitors, with the camera of laptops that are known to have one in their display.
class NotchedScreens : public QtScreens {
 protected:
    void addNotch(Screen& screen, const QScreen& described) const override;

 private:
    std::optional<NotchedDisplay> notched_ = notchedDisplay();
};

}  // namespace noonward
