#include "views/ribbon/RibbonStrip.h"

#include <array>

#include "kit/Description.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "kit/Tile.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double cellRadius = 6;
constexpr double stripWidth = Metrics::gridWidth + 2 * Metrics::bleed;

struct CellColours {
    Colour fill;
    Colour label;
};

CellColours coloursOf(Phase phase, const Palette& palette) {
    switch (phase) {
        case Phase::work:
            return {palette.work, palette.workText};
        case Phase::awake:
            return {palette.awake, palette.awakeText};
        case Phase::asleep:
            return {palette.asleep, palette.asleepText};
        case Phase::off:
            return {palette.off, palette.offText};
    }
    return {};
}

constexpr std::array days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// What a cell's colour tells those who see it.
const char* nameOf(Phase phase) {
    switch (phase) {
        case Phase::work:
            return "working hours";
        case Phase::awake:
            return "awake";
        case Phase::asleep:
            return "asleep";
        case Phase::off:
            return "day off";
    }
    return "";
}

// The first hour of a day shows which day begins.
View dayLabel(const std::string& day, const std::string& number) {
    return vstack({.spacing = 0}, {text(day), text(number)}).font(hanken(10, Weight::bold));
}

View cell(const RibbonContext& context, const Row& row, Instant start) {
    const LocalTime local = row.cal.local(start);
    const Phase phase = context.store.phase(row, start, true);
    const bool twelveHour = twelve(context.store.format());
    const std::string day = days.at(static_cast<std::size_t>(local.weekday - 1));
    const std::string number = std::to_string(local.day);
    const bool dayBegins = local.hour == 0;
    const std::string label = dayBegins ? day + ' ' + number : context.store.hourLabel(local.hour);
    const std::string key = std::string(context.scheme == Scheme::dark ? "dark " : "light ") +
                            std::to_string(static_cast<int>(phase)) + ' ' + label;
    const CellColours colours = coloursOf(phase, context.palette);
    const Description says{.role = Role::cell,
                           .name = label + ", " + nameOf(phase),
                           .press = [&store = context.store, start] { store.place(start); }};
    return tile(key, {Metrics::cell, Metrics::cellHeight}, says, [=] {
        const View content = dayBegins
                                 ? dayLabel(day, number)
                                 : text(label).font(hanken(twelveHour ? 11 : 13, Weight::medium));
        return content.colour(colours.label)
            .frame({.width = Metrics::cell, .height = Metrics::cellHeight})
            .background(roundedRectangle(cellRadius).fill(colours.fill));
    });
}

std::vector<MaskStop> fadedMargins() {
    constexpr std::array<std::pair<double, double>, 8> distances{
        {{0, 0}, {21, 0.1}, {42, 0.45}, {60, 1}, {826, 1}, {844, 0.45}, {865, 0.1}, {886, 0}}};
    std::vector<MaskStop> stops;
    stops.reserve(distances.size());
    for (const auto& [distance, opacity] : distances) {
        stops.push_back({distance / stripWidth, opacity});
    }
    return stops;
}

}  // namespace

View strip(const RibbonContext& context, const Row& row) {
    const int minute = row.cal.local(context.dayStart).minute;
    const double before = minute / 60.0 + context.scroll;
    Views cells;
    for (int i = -2; i <= 25; ++i) {
        const Instant start = context.dayStart + hours(i) - minutes(minute);
        cells.push_back(cell(context, row, start));
    }
    return hstack({.spacing = Metrics::gap}, cells)
        .fixedSize()
        .offset(Metrics::bleed - (2 + before) * Metrics::pitch, 0)
        .frame({.width = stripWidth, .height = Metrics::cellHeight, .alignment = leading})
        .clip(rectangle())
        .mask(fadedMargins());
}

}  // namespace noonward
