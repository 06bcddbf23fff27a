#include "views/ribbon/RibbonHeader.h"

#include "kit/Interaction.h"
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
    return text(day.name() + (day.off() ? "" : "?"))
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

// What is short of room loses the end of its date, never the difference from home.
View detailLine(const RibbonContext& context, const Row& row) {
    const std::string abbreviation = row.abbr(context.focus);
    const std::string date = context.store.date(context.focus, row);
    const std::string difference = context.store.diff(row, context.focus);
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
    auto& hoveredRow = context.hoveredRow;
    const bool seen = hoveredRow() == row.id;
    if (!seen && context.solid) return {};
    return symbol(Symbols::eyeSlash)
        .font(systemFont(12))
        .colour(context.palette.mist)
        .frame({.width = 24, .height = 24})
        .background(circle().fill(context.palette.chip))
        .opacity(seen ? 1 : 0)
        .button([&store, row] { store.toggleHidden(row); }, PressKeys::space,
                [&hoveredRow, id = row.id](bool has) {
                    if (has) {
                        hoveredRow = id;
                    } else if (hoveredRow() == id) {
                        hoveredRow = std::nullopt;
                    }
                })
        .tooltip("Hide " + row.label + " for now — left out of the email and the fairest hour");
}

}  // namespace

View rowHeader(const RibbonContext& context, const Row& row) {
    const bool twelveHour = twelve(context.store.format());
    return hstack({.align = Vertical::firstBaseline, .spacing = 12},
                  {
                      text(context.store.time(context.focus, row))
                          .font(hanken(twelveHour ? 22 : 27, Weight::light))
                          .colour(row.isHome ? context.palette.homeTime : context.palette.text)
                          .priority(1),
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
