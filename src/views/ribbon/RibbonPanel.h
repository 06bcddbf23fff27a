#pragma once

#include <functional>
#include <optional>

#include "base/Published.h"
#include "kit/View.h"
#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/theme/PanelChrome.h"

namespace noonward {

/// The main view: every place as a strip of hour cells lined up on the same moment, the controls
/// bar and the line of hints. It keeps only what the pointer is over
/// and what has the focus; all else is the store's.
class RibbonPanel {
 public:
    struct Options {
        /// A free-standing picture: round corners all about, texts in place of controls.
        bool solid = false;
        bool hints = true;  ///< whether the bottom line is shown
        /// Pictures for demonstration show travel banner, update notice and settings button even
        /// when `solid`.
        bool demonstration = false;
        std::function<void()> onCopyInvite = [] {};
    };

    RibbonPanel(Store& store, NotchUI& ui, Options options);

    kit::View body(Scheme scheme, Backing backing = Backing::opaque) const;

    /// Announces when the panel itself has something else to show.
    Announcer& changes() { return changes_; }

 private:
    Store& store_;
    NotchUI& ui_;
    Options options_;
    mutable Announcer changes_;
    // Ids of the row under the pointer, and of the one whose button has the focus.
    mutable Published<std::optional<int>> hoveredRow_{changes_};
    mutable Published<std::optional<int>> focusedRow_{changes_};
};

}  // namespace noonward
