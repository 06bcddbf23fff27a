#include "views/ribbon/RibbonPanel.h"

#include <utility>

#include "kit/Interaction.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/ribbon/RibbonBar.h"
#include "views/ribbon/RibbonBottomLine.h"
#include "views/ribbon/RibbonContext.h"
#include "views/ribbon/RibbonControls.h"
#include "views/ribbon/RibbonMarks.h"
#include "views/ribbon/RibbonRows.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

namespace {

View dateHeader(const RibbonContext& context) {
    Store& store = context.store;
    if (context.solid) {
        return text(store.date(store.shownDay(), context.home))
            .font(hanken(13, Weight::semibold))
            .fixedSize()
            .offset(Metrics::pad, 12);
    }
    return daySwitcher(context)
        .font(systemFont(11, Weight::semibold))
        .fixedSize()
        .offset(Metrics::pad, 8);
}

// Where the pointer is on the 24 hours, from below the captions down. A hidden row's button is none
// of them, however far it reaches.
void hover(Store& store, const std::optional<Hover>& over) {
    std::optional<int> column;
    if (over && !over->onControl) {
        const double dx = over->at.x() - Metrics::gridX;
        if (dx >= 0 && dx < Metrics::gridWidth && over->at.y() > 32) {
            column = store.column(dx, Metrics::pitch);
        }
    }
    store.hoverCol = column;
}

View grid(const RibbonContext& context) {
    Store& store = context.store;
    return zstack(
               topLeading,
               {
                   ribbonRows(context).padding({.horizontal = Metrics::pad, .top = Metrics::top}),
                   form(context.solid, dateHeader(context)),
                   fairestCaption(context),
                   fairestOutline(context),
                   hoverOutline(context),
                   nowMark(context, context.rowsHeight + 16),
                   proposalBlock(context, context.rowsHeight),
               })
        .frame({.width = Metrics::panelWidth,
                .height = Metrics::top + context.rowsHeight,
                .alignment = topLeading})
        .onHover([&store](std::optional<Hover> over) { hover(store, over); });
}

}  // namespace

RibbonPanel::RibbonPanel(Store& store, NotchUI& ui, Options options)
    : store_(store), ui_(ui), options_(std::move(options)) {}

View RibbonPanel::body(Scheme scheme, Backing backing) const {
    RibbonContext context{
        .store = store_,
        .ui = ui_,
        .palette = Palette::of(scheme),
        .scheme = scheme,
        .solid = options_.solid,
        .demonstration = options_.demonstration,
        .onCopyInvite = options_.onCopyInvite,
        .hoveredRow = hoveredRow_,
        .focusedRow = focusedRow_,
        .rows = store_.rows(),
        .home = store_.homeRow(),
        .fair = store_.fairestCol(),
        .focus = store_.focus(),
        .columns = store_.columns(),
        .dayStart = store_.dayStart(),
        .scroll = store_.scroll(),
    };
    std::vector<bool> hidden;
    for (const Row& row : context.rows)
        hidden.push_back(store_.isHidden(row));
    context.rowsHeight = Metrics::rowsHeight(hidden);
    context.shift = -Metrics::pitch * context.scroll;

    const View bottom = options_.hints
                            ? bottomLine(context)
                                  .font(hanken(12))
                                  .padding({.horizontal = Metrics::pad, .top = 12, .bottom = 14})
                            : spacer().frame({.height = 18});
    return panelChrome({.palette = context.palette, .solid = options_.solid, .backing = backing},
                       vstack({.align = Horizontal::leading},
                              {
                                  grid(context),
                                  bar(context).padding({.horizontal = Metrics::pad, .top = 18}),
                                  form(options_.hints, bottom),
                              })
                           .frame({.width = Metrics::panelWidth}));
}

}  // namespace noonward
