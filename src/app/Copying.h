#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/Lifetime.h"
#include "views/theme/Palette.h"

namespace noonward {

class MainQueue;
class NotchUI;
class Pasteboard;
class Store;

/// Puts the plan on the clipboard, and says so in the ribbon for a while.
class Copying {
 public:
    /// `panelScheme` tells in which colours the panel is shown at the moment.
    Copying(Store& store, NotchUI& ui, Pasteboard& pasteboard, MainQueue& queue,
            std::function<Scheme()> panelScheme);

    void copyText();     ///< the times of what the ribbon is about, for a message
    void copyPicture();  ///< the ribbon as a PNG; one that cannot be drawn changes nothing
    void copyInvite();   ///< the proposed meeting, or the fairest hour, for an email

    /// Shows a message in the ribbon for 2.5 seconds, unless another replaces it.
    void flash(const std::optional<std::string>& message);

 private:
    Store& store_;
    NotchUI& ui_;
    Pasteboard& pasteboard_;
    MainQueue& queue_;
    std::function<Scheme()> panelScheme_;
    unsigned flashes_ = 0;
    Lifetime lifetime_;
};

}  // namespace noonward
