#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/theme/Metrics.h"
#include "views/theme/Palette.h"

namespace noonward {

/// What the pieces of the ribbon share during one redraw. Callbacks of the views outlive it and
/// must hold the store and the state they need, never the context.
struct RibbonContext {
    Store& store;
    NotchUI& ui;
    const Palette& palette;
    Scheme scheme;
    bool solid;          ///< texts in place of controls
    bool demonstration;  ///< travel banner, update notice and settings button all the same
    std::function<void()> onCopyInvite;
    Published<std::optional<int>>& hoveredRow;
    Published<std::optional<int>>& focusedRow;

    std::vector<Row> rows;
    Row home;
    int fair = 0;   ///< the fairest column, perhaps beyond the strip
    Instant focus;  ///< what the headers describe
    Columns columns;
    Instant dayStart;
    double scroll = 0;
    double rowsHeight = 0;
    double shift = 0;  ///< by which all marks over the strips are moved, points

    bool showsControls() const { return !solid || demonstration; }
};

}  // namespace noonward
