#include "views/ribbon/RibbonRows.h"

#include "base/Unicode.h"
#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "views/ribbon/RibbonHeader.h"
#include "views/ribbon/RibbonStrip.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

View hiddenRow(const RibbonContext& context, const Row& row) {
    Store& store = context.store;
    return hstack({.spacing = 8},
                  {
                      symbol(Symbols::eyeSlash),
                      text(row.label).font(hanken(12, Weight::semibold)),
                      text("hidden — not in the email or the fairest hour · click to show")
                          .font(hanken(12))
                          .priority(1),
                  })
        .colour(context.palette.mist)
        .padding({.horizontal = 12})
        .frame({.height = Metrics::hiddenHeight})
        .background(capsule().fill(context.palette.chip))
        .button([&store, row] { store.toggleHidden(row); }, PressKeys::space)
        .tooltip("Show " + unicode::isolated(row.label) +
                 " again — in the email and the fairest hour");
}

// What the row's header shows, in one line.
std::string spoken(const RibbonContext& context, const Row& row) {
    const Store& store = context.store;
    const std::optional<DayOff> day = store.dayOff(row, context.focus);
    return store.time(context.focus, row) + ", " + store.date(context.focus, row) +
           (day ? ", " + day->name() : "");
}

View visibleRow(const RibbonContext& context, const Row& row) {
    auto& hoveredRow = context.hoveredRow;
    return hstack({.spacing = Metrics::headerGap},
                  {
                      rowHeader(context, row),
                      strip(context, row),
                  })
        .frame({.height = Metrics::rowHeight})
        .described({.role = Role::row, .name = row.label, .value = spoken(context, row)})
        .onHover([&hoveredRow, id = row.id](std::optional<Hover> over) {
            if (over) {
                hoveredRow = id;
            } else if (hoveredRow() == id) {
                hoveredRow = std::nullopt;
            }
        });
}

}  // namespace

View ribbonRows(const RibbonContext& context) {
    return vstack({.align = Horizontal::leading, .spacing = Metrics::rowGap},
                  {
                      forEach(
                          context.rows, [](const Row& row) { return row.id; },
                          [&context](const Row& row) {
                              const bool hidden = context.store.isHidden(row);
                              return form(hidden, hidden ? hiddenRow(context, row)
                                                         : visibleRow(context, row));
                          }),
                  });
}

}  // namespace noonward
