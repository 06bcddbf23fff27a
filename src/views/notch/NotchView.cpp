#include "views/notch/NotchView.h"

#include <algorithm>
#include <string>
#include <utility>

#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Node.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/notch/NotchShape.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"
#include "views/theme/Velmora.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double earInset = 14;
constexpr double leastInset = 1;  // where an ear is crowded
constexpr double usualSpacing = 6;
constexpr double leastSpacing = 2;
constexpr double markSide = 7;

// The outline, and with it what lies in it, as far as the notch is opened out.
struct Extent {
    explicit Extent(const NotchUI& ui)
        : shoulder(ui.expanded() ? NotchUI::shoulder : 0),
          radius(ui.expanded() ? 14 : 10),
          width(2 * shoulder + ui.notchWidth + (ui.expanded() ? 2 * NotchUI::ear : 0)),
          height(ui.height) {}

    Frame frame() const { return {.width = width, .height = height}; }

    double shoulder;
    double radius;
    double width;
    double height;
};

// "9:30 AM" takes no more room than it must.
std::string shortened(std::string time) {
    for (const auto& [half, letter] : {std::pair{" AM", "a"}, {" PM", "p"}}) {
        if (const std::size_t at = time.find(half); at != std::string::npos)
            time.replace(at, 3, letter);
    }
    return time;
}

View mark(Phase phase) {
    const Frame dot{.width = markSide, .height = markSide};
    switch (phase) {
        case Phase::work:
            return form(0, circle().fill(Velmora::teal).frame(dot));
        case Phase::awake:
            return form(1, circle().fill(Velmora::orange).frame(dot));
        case Phase::asleep:
            return form(2, symbol(Symbols::moonFilled).font(systemFont(9)).colour(Velmora::mist));
        case Phase::off:
            return form(3, circle().strokeInside(Velmora::teal, 1.5).frame(dot));
    }
    return {};
}

enum class Side { leading, trailing };

// The items of an ear from its outer edge inwards; an absent label leaves no trace.
View items(Side side, Views line, double spacing) {
    if (side == Side::trailing) std::reverse(line.begin(), line.end());
    return hstack({.spacing = spacing}, line).fixedSize();
}

double idealWidth(const View& view) {
    return view->measure({}, {}).width();
}

// What does not fit between the inset and the camera reaches out into the inset, then the items
// move together. Where that is not enough the label goes: the time is never cut.
View crowded(Side side, const Views& all, const Views& withoutLabel) {
    const View whole = items(side, all, usualSpacing);
    const double over = idealWidth(whole) - (NotchUI::ear - leastInset);
    if (over <= 0) return whole;
    const auto gaps = std::count_if(all.begin(), all.end(),
                                    [](const View& item) { return static_cast<bool>(item); }) -
                      1;
    const double spacing = usualSpacing - over / static_cast<double>(gaps);
    return spacing < leastSpacing ? items(side, withoutLabel, usualSpacing)
                                  : items(side, all, spacing);
}

View ear(Store& store, const NotchUI& ui, const Row& row, Side side) {
    const View update = when(side == Side::leading && ui.updateReady(), [] {
        return symbol(Symbols::update).font(systemFont(10)).colour(Velmora::mist);
    });
    const View state = mark(store.phase(row, store.now(), false));
    const View label = text(row.shortName).font(hanken(12)).colour(Velmora::mist);
    const View time = text(shortened(store.time(store.now(), row)))
                          .font(hanken(13, Weight::semibold))
                          .colour(white);

    const View line = crowded(side, {update, state, label, time}, {update, state, {}, time});
    const bool inside = idealWidth(line) <= NotchUI::ear - earInset;
    return line.frame({.width = NotchUI::ear - earInset,
                       .alignment = (side == Side::leading) == inside ? leading : trailing});
}

View ears(Store& store, const NotchUI& ui, const Extent& extent) {
    const std::vector<Row> rows = store.notchRows();
    if (rows.size() != 2) return {};
    const bool shown = ui.showTimes();
    return hstack({},
                  {
                      ear(store, ui, rows[0], Side::leading),
                      rectangle().frame({.width = ui.notchWidth}),
                      ear(store, ui, rows[1], Side::trailing),
                  })
        .padding({.horizontal = extent.shoulder + earInset})
        .frame(extent.frame())
        .opacity(shown ? 1 : 0)
        .scale(shown ? 1 : 0.55, shown ? 1 : 0.55)
        .blur(shown ? 0 : 3);
}

// For those who cannot see the ears, or the symbols in them.
std::string spoken(const Store& store) {
    std::string all = "Noonward";
    for (const Row& row : store.notchRows())
        all += ", " + row.label + ' ' + store.time(store.now(), row);
    return all;
}

}  // namespace

View NotchView::body() const {
    const Extent extent(ui_);
    return zstack(centred,
                  {
                      NotchShape{extent.shoulder, extent.radius}.fill(black).frame(extent.frame()),
                      ears(store_, ui_, extent),
                  })
        .frame({.width = ui_.windowWidth(), .height = ui_.height, .alignment = topCentre})
        .described({.role = Role::button, .name = spoken(store_)})
        .onTap([&ui = ui_] { ui.onTap(); })
        .contextMenu({
            MenuItem{"Places & appearance…", [&ui = ui_] { ui.onSettings(); }},
            MenuItem{"Check for Updates…", [&ui = ui_] { ui.onUpdates(); }},
            MenuItem{},
            MenuItem{"Quit Noonward", [&ui = ui_] { ui.onQuit(); }},
        });
}

}  // namespace noonward
