#include "views/ribbon/RibbonMarks.h"

#include <cmath>

#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double captionWidth = 80;
constexpr double labelWidth = 140;

double columnX(int column) {
    return Metrics::gridX + column * Metrics::pitch;
}

// The proposal as a number: minutes since the first hour of the strip.
Range minutesOfDay(const RibbonContext& context, Instant proposal) {
    Store& store = context.store;
    const auto place = [&store, from = context.dayStart](double after) {
        store.place(from + minutes(std::lround(after)));
    };
    return {.now = std::round(hoursBetween(context.dayStart, proposal) * 60),
            .least = context.columns.first * 60.0,
            .most = (context.columns.last + 1) * 60.0 - store.duration(),
            .step = 5,
            .set = place};
}

}  // namespace

View fairestCaption(const RibbonContext& context) {
    if (context.store.proposal() || !context.columns.contains(context.fair)) return {};
    const double middle = columnX(context.fair) + Metrics::pitch / 2;
    return text("FAIREST")
        .font(hanken(11, Weight::bold))
        .colour(context.palette.fair)
        .frame({.width = captionWidth})
        .offset(middle - captionWidth / 2 + context.shift, 14);
}

View fairestOutline(const RibbonContext& context) {
    const double inView = context.store.proposal() ? 0.45 : 1;
    return roundedRectangle(8)
        .strokeInside(context.palette.fair, 2)
        .frame({.width = 34, .height = context.rowsHeight + 12})
        .opacity(context.columns.contains(context.fair) ? inView : 0)
        .offset(columnX(context.fair) - 2 + context.shift, 34);
}

View hoverOutline(const RibbonContext& context) {
    const std::optional<int>& column = context.store.hoverCol();
    if (context.store.proposal() || !column) return {};
    return roundedRectangle(7)
        .strokeInside(context.palette.text.opacity(0.5), 1.5)
        .frame({.width = 32, .height = context.rowsHeight + 4})
        .offset(columnX(*column) - 1 + context.shift, 38);
}

View nowMark(const RibbonContext& context, double height) {
    if (context.store.dayOffset() != 0) return {};
    const double hour = hoursBetween(context.dayStart, context.store.now());
    const double column = std::floor(hour);
    const double x = Metrics::gridX + column * Metrics::pitch + (hour - column) * Metrics::cell;
    const Colour colour = context.palette.now;
    return View(roundedRectangle(1).fill(colour))
        .frame({.width = 2, .height = height})
        .shadow(colour.opacity(0.7), 4)
        .offset(x - 1 + context.shift, 32);
}

View proposalBlock(const RibbonContext& context, double height) {
    Store& store = context.store;
    if (!store.proposal()) return {};
    const Instant proposal = *store.proposal();
    const double start = hoursBetween(context.dayStart, proposal);
    const double from = Metrics::x(start);
    const double until = Metrics::x(start + store.duration() / 60.0);
    const std::string range = store.range(proposal, context.home);
    const Palette& palette = context.palette;

    const View block = roundedRectangle(8)
                           .fill(palette.selected.opacity(0.3))
                           .strokeInside(palette.selected, 2)
                           .frame({.width = until - from + 4, .height = height + 8})
                           .described({.role = Role::range,
                                       .name = "Proposed time",
                                       .value = range + " " + context.home.label,
                                       .range = minutesOfDay(context, proposal)})
                           .cursor(Cursor::grab)
                           .offset(from - 2, 36);
    const View label = text(range)
                           .font(hanken(11, Weight::bold))
                           .colour(white)
                           .padding({.horizontal = 8, .vertical = 2})
                           .background(capsule().fill(palette.selected))
                           .fixedSize()
                           .frame({.width = labelWidth})
                           .offset((from + until) / 2 - labelWidth / 2, 12);
    return zstack(topLeading, {block, label}).offset(context.shift, 0);
}

}  // namespace noonward
