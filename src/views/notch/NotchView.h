#pragma once

#include "kit/View.h"

namespace noonward {

class NotchUI;
class Store;

/// The black outline over the camera's notch. Opened out it has a clock on each side, of the home
/// place and of the next favourite. A tap and a menu lead on to the panel.
class NotchView {
 public:
    NotchView(Store& store, NotchUI& ui) : store_(store), ui_(ui) {}

    kit::View body() const;

 private:
    Store& store_;
    NotchUI& ui_;
};

}  // namespace noonward
