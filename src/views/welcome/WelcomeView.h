#pragma once

#include <functional>

#include "kit/View.h"
#include "views/theme/PanelChrome.h"

namespace noonward {

class NotchUI;
class Store;

/// What the program says of itself when it runs for the first time.
class WelcomeView {
 public:
    /// `onDone` is told whether the user wants to choose places next.
    WelcomeView(Store& store, NotchUI& ui, std::function<void(bool choosePlaces)> onDone);

    kit::View body(Scheme scheme, Backing backing = Backing::opaque) const;

 private:
    std::function<void(bool)> onDone_;
};

}  // namespace noonward
