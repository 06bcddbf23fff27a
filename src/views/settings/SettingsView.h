#pragma once

#include <optional>
#include <string>

#include "kit/View.h"
#include "views/theme/PanelChrome.h"

namespace noonward {

class NotchUI;
class Store;

/// The places and the looks of the program, to be changed. Each one shown is a new one.
class SettingsView {
 public:
    struct Options {
        std::string query;           ///< what the search field holds at first
        std::optional<int> editing;  ///< index of the place whose week is open at first
    };

    SettingsView(Store& store, NotchUI& ui, Options options);

    kit::View body(Scheme scheme, Backing backing = Backing::opaque) const;

 private:
    Store& store_;
    NotchUI& ui_;
};

}  // namespace noonward
