#include "views/ribbon/RibbonHeader.h"

#include "base/Unicode.h"
#include "kit/Interaction.h"
#include "kit/Node.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "reference/Country.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double timeGap = 12;  // between the time and what stands beside it

std::string dayOffTooltip(const DayOff& day, const Row& row) {
    switch (day.kind()) {
        case DayOff::Kind::weekend:
            return "Not a working day in " + row.label;
        case DayOff::Kind::holiday:
            return day.name() + ": a public holiday in " +
                   (row.country ? Country::name(*row.country) : row.label);
        case DayOff::Kind::regional:
            return day.name() + ": a holiday in " + day.region() + " only";
        case DayOff::Kind::ownDay:
            return "A day off you added for " + row.label;
    }
    return {};
}

View dayOffChip(const RibbonContext& context, const Row& row, const DayOff& day) {
    const bool weekend = day.kind() == DayOff::Kind::weekend;
    const Palette& palette = context.palette;
    return hstack({}, {text(day.name()), when(!day.off(), [] { return text("?").priority(1); })})
        .font(hanken(11, Weight::semibold))
        .colour(weekend ? palette.mist : palette.offText)
        .padding({.horizontal = 6, .vertical = 1})
        .background(capsule().fill(weekend ? palette.chip : palette.off))
        .tooltip(dayOffTooltip(day, row));
}

View nameLine(const RibbonContext& context, const Row& row) {
    const std::optional<DayOff> day = context.store.dayOff(row, context.focus);
    return hstack({.spacing = 6},
                  {
                      text(row.label).font(hanken(15, Weight::semibold)).priority(1),
                      when(day.has_value(), [&] { return dayOffChip(context, row, *day); }),
                  });
}

View timeText(const RibbonContext& context, const Row& row) {
    const bool twelveHour = twelve(context.store.format());
    return text(context.store.time(context.focus, row))
        .font(hanken(twelveHour ? 22 : 27, Weight::light))
        .colour(row.isHome ? context.palette.homeTime : context.palette.text);
}

double idealWidth(const View& view) {
    return view->measure({}, {}).width();
}

double roomForDetails(const RibbonContext& context, const Row& row) {
    return Metrics::header - timeGap - idealWidth(timeText(context, row));
}

// What is short of room loses the abbreviation first, which says no more than the difference from
// home, then the end of its date.
View detailLine(const RibbonContext& context, const Row& row) {
    std::string abbreviation = row.abbr(context.focus);
    const std::string date = context.store.date(context.focus, row);
    const std::string difference = context.store.diff(row, context.focus);
    const View whole = text(abbreviation + " · " + date + " · " + difference).font(hanken(12));
    if (!difference.empty() && idealWidth(whole) > roomForDetails(context, row))
        abbreviation.clear();
    return hstack(
               {.spacing = 0},
               {
                   text(abbreviation.empty() ? date : abbreviation + " · " + date),
                   when(!difference.empty(), [&] { return text(" · " + difference).priority(1); }),
               })
        .font(hanken(12))
        .colour(context.palette.mist);
}

// There for the Tab key as well, and seen when the pointer or the focus has come to it.
View hideButton(const RibbonContext& context, const Row& row) {
    Store& store = context.store;
    auto& focusedRow = context.focusedRow;
    const bool seen = context.hoveredRow() == row.id || focusedRow() == row.id;
    if (!seen && context.solid) return {};
    return symbol(Symbols::eyeSlash)
        .font(systemFont(12))
        .colour(context.palette.mist)
        .frame({.width = 24, .height = 24})
        .background(zstack(
            centred, {circle().fill(context.palette.tint), circle().fill(context.palette.chip)}))
        .opacity(seen ? 1 : 0)
        .button([&store, row] { store.toggleHidden(row); }, PressKeys::space,
                [&focusedRow, id = row.id](bool has) {
                    if (has) {
                        focusedRow = id;
                    } else if (focusedRow() == id) {
                        focusedRow = std::nullopt;
                    }
                })
        .tooltip("Hide " + unicode::isolated(row.label) +
                 " for now — left out of the email and the fairest hour");
}

}  // namespace

View rowHeader(const RibbonContext& context, const Row& row) {
    return hstack({.align = Vertical::firstBaseline, .spacing = timeGap},
                  {
                      timeText(context, row).priority(1),
                      vstack({.align = Horizontal::leading, .spacing = 1},
                             {
                                 nameLine(context, row),
                                 detailLine(context, row),
                             }),
                  })
        .frame({.width = Metrics::header, .alignment = leading})
        .overlay(hideButton(context, row), trailing);
}

}  // namespace noonward
