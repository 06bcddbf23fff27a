#include "views/settings/PlaceList.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/Unicode.h"
#include "kit/Disclosure.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "kit/TextField.h"
#include "views/settings/SettingsControls.h"
#include "views/settings/SettingsState.h"
#include "views/settings/WeekEditor.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"
#include "views/theme/Velmora.h"

namespace noonward {

using namespace kit;

namespace {

using State = IconButton::State;

/// One place of the list while it is built.
struct Entry {
    std::shared_ptr<SettingsState> state;
    const Palette& palette;
    PlaceIdentity identity;
    int index;
    const Row& row;
    bool isHome;

    std::function<void()> edits(SettingsState::Edit change) const {
        return [state = state, identity = identity, change = std::move(change)] {
            state->edit(identity, change);
        };
    }
    std::function<void()> rearranges(SettingsState::Edit change) const {
        return [state = state, identity = identity, change = std::move(change)] {
            state->rearrange(identity, change);
        };
    }
};

View star(const Entry& entry) {
    const bool isFavourite = entry.state->store.isFavourite(entry.index);
    const char* tip = entry.isHome  ? "Home is always a favourite"
                      : isFavourite ? "Favourite — beside the notch. Click to unstar"
                                    : "Make this a favourite, beside the notch";
    return iconButton({
        .symbol = isFavourite ? Symbols::starFilled : Symbols::star,
        .tint = isFavourite ? entry.palette.fair : entry.palette.mist,
        .size = 14,
        .tip = tip,
        .of = entry.row.label,
        .state = entry.isHome ? State::sign : State::enabled,
        .action = entry.edits([](Store& store, int index) { store.toggleFavourite(index); }),
    });
}

View house(const Entry& entry) {
    return iconButton({
        .symbol = entry.isHome ? Symbols::houseFilled : Symbols::house,
        .tint = entry.isHome ? entry.palette.homeTime : entry.palette.mist,
        .size = 13,
        .tip = entry.isHome ? "Home" : "Make this home",
        .of = entry.row.label,
        .action = entry.rearranges([](Store& store, int index) { store.setHome(index); }),
    });
}

// A place without a zone of its own has this computer's, but stays behind when that travels. So
// does home, once the user has said where to plan from.
std::string travelNote(const Entry& entry) {
    const Store& store = entry.state->store;
    const Config& config = store.config();
    const bool follows = config.places[static_cast<std::size_t>(entry.index)].zone.empty();
    const bool away = store.away();
    if (away && (follows || (entry.isHome && config.travel))) return "Home time while you travel";
    return follows ? "Follows this Mac" : "";
}

std::string zoneName(const Entry& entry) {
    std::string zone = entry.row.tz.identifier();
    std::replace(zone.begin(), zone.end(), '_', ' ');
    return zone;
}

// What comes behind the zone.
std::string details(const Entry& entry) {
    const Store& store = entry.state->store;
    std::string line;
    for (const std::string& part : {
             travelNote(entry),
             entry.row.abbr(store.now()),
             store.time(store.now(), entry.row),
             "works " + entry.row.hoursText() + " " + entry.row.daysText(),
         }) {
        if (!part.empty()) line += " · " + part;
    }
    return line;
}

View nameField(const Entry& entry) {
    const auto rename = [state = entry.state, identity = entry.identity](const std::string& typed) {
        state->edit(identity, [&](Store& store, int index) {
            store.rename(index, std::string(unicode::trimmed(typed)));
        });
    };
    return textField({.name = "Name of " + entry.row.label,
                      .text = entry.row.label,
                      .placeholder = "Name",
                      .onEdit = rename})
        .font(hanken(15))
        .tooltip("Click to rename");
}

View names(const Entry& entry) {
    const std::string zone = zoneName(entry);
    const std::string rest = details(entry);
    // Where there is no room for all, the zone gives way: the times say as much.
    return vstack({.align = Horizontal::leading, .spacing = 2},
                  {
                      nameField(entry),
                      hstack({}, {text(zone), text(rest).priority(1)})
                          .font(hanken(12))
                          .colour(entry.palette.mist)
                          .tooltip(zone + rest),
                  });
}

View moveButton(const Entry& entry, SymbolSource symbol, const char* tip, int by) {
    const int places = static_cast<int>(entry.state->store.config().places.size());
    const int target = entry.index + by;
    const bool possible = target >= 0 && target < places && !entry.state->store.isHome(target);
    return iconButton({
        .symbol = symbol,
        .tint = entry.palette.text,
        .tip = tip,
        .of = entry.row.label,
        .state = possible ? State::enabled : State::disabled,
        .action = entry.rearranges([by](Store& store, int index) { store.move(index, by); }),
    });
}

View order(const Entry& entry) {
    if (entry.isHome) {
        return form(0, text("always first")
                           .font(hanken(11))
                           .colour(entry.palette.mist)
                           .frame({.width = 84, .alignment = trailing}));
    }
    return form(1,
                hstack({.spacing = 4}, {
                                           moveButton(entry, Symbols::chevronUp, "Move up", -1),
                                           moveButton(entry, Symbols::chevronDown, "Move down", 1),
                                       }));
}

View tools(const Entry& entry) {
    const auto toggleWeek = [state = entry.state, identity = entry.identity] {
        state->toggleEditing(identity);
    };
    return hstack({.spacing = 4},
                  {
                      iconButton({.symbol = Symbols::calendarClock,
                                  .tint = entry.palette.text,
                                  .tip = "Working hours, days and holidays",
                                  .of = entry.row.label,
                                  .action = toggleWeek}),
                      order(entry),
                      iconButton({.symbol = Symbols::minusInCircle,
                                  .tint = Velmora::red,
                                  .cutOut = white,
                                  .tip = "Remove",
                                  .of = entry.row.label,
                                  .state = entry.isHome ? State::disabled : State::enabled,
                                  .action = entry.rearranges(
                                      [](Store& store, int index) { store.remove(index); })}),
                  });
}

View placeRow(const Entry& entry) {
    const bool isEdited = entry.state->isEditing(entry.identity);
    const Colour lit = isEdited ? entry.palette.button.opacity(0.22) : clear;
    return hstack({.spacing = 10},
                  {star(entry), house(entry), names(entry), spacer(), tools(entry).fixedSize()})
        .padding({.horizontal = 12})
        .frame({.height = 52, .maxWidth = infinite})
        .background(
            zstack(centred, {chipGround(entry.palette, 10), roundedRectangle(10).fill(lit)}));
}

// What is shut is there as long as it may glide.
View week(const Entry& entry) {
    const bool isOpen = entry.state->isEditing(entry.identity);
    if (!isOpen && !entry.state->isShut(entry.identity)) return {};
    return disclosure(weekEditor(entry.state, entry.palette, entry.identity, entry.row)
                          .revealed(isOpen)
                          .padding({.top = 8}),
                      isOpen);
}

}  // namespace

View placeList(const std::shared_ptr<SettingsState>& state, const Palette& palette) {
    const std::vector<Row> rows = state->store.places();
    const std::vector<PlaceIdentity>& identities = state->identities();
    return forEach(
        rows, [&](const Row& row) { return identities[static_cast<std::size_t>(row.id)]; },
        [&](const Row& row) {
            const Entry entry{state,  palette, identities[static_cast<std::size_t>(row.id)],
                              row.id, row,     state->store.isHome(row.id)};
            return vstack({.align = Horizontal::leading}, {placeRow(entry), week(entry)});
        });
}

}  // namespace noonward
