#include "views/settings/CitySearch.h"

#include <string>
#include <vector>

#include "base/Unicode.h"
#include "kit/Paragraph.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "kit/TextField.h"
#include "reference/Cities.h"
#include "views/settings/SettingsControls.h"
#include "views/settings/SettingsState.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

using State = std::shared_ptr<SettingsState>;

constexpr std::size_t leastForLookUp = 3;  // characters

View searchField(const State& state, const Palette& palette) {
    return hstack(
               {.spacing = 8},
               {
                   symbol(Symbols::magnifyingGlass).colour(palette.mist),
                   textField(
                       {.text = state->query(),
                        .placeholder = "A city — Tokyo, Nairobi, Toronto…",
                        .onEdit = [state](std::string typed) { state->query = std::move(typed); },
                        .focusRequests = state->searchFocus()}),
               })
        .font(hanken(15))
        .padding({.horizontal = 12, .vertical = 9})
        .background(chipGround(palette, 10))
        .fieldBox()
        .tooltip("Type a city or a country, then choose from what is found");
}

std::string describe(const Store& store, const City& city) {
    const auto zone = TimeZone::find(city.zone);
    if (!zone) return {};
    const Row row(Row::utcID, {.label = city.name, .shortName = city.shortName, .zone = city.zone},
                  *zone, false);
    std::string line = row.abbr(store.now()) + " · " + store.time(store.now(), row);
    const std::string difference = store.diff(row, store.now());
    return difference.empty() ? line : line + " · " + difference;
}

View result(const State& state, const Palette& palette, const City& city, const std::string& name) {
    return hstack({.spacing = 8},
                  {
                      symbol(Symbols::plusInCircle).font(systemFont(14)).colour(palette.fair),
                      text(name).font(hanken(14)),
                      text(describe(state->store, city))
                          .font(hanken(12))
                          .colour(palette.mist)
                          .priority(1),
                  })
        .padding({.horizontal = 12, .vertical = 4})
        .tooltip(Cities::fullName(city))
        .button([state, city] { state->add(city); }, PressKeys::space);
}

View lookUpRow(const State& state, const Palette& palette) {
    const std::string quoted = "“" + unicode::isolated(state->query()) + "”";
    if (state->lookingUp()) {
        return form(0, hstack({.spacing = 8},
                              {
                                  symbol(Symbols::hourglass).font(systemFont(14)),
                                  text("Looking up " + quoted + "…").font(hanken(14)),
                              })
                           .colour(palette.mist)
                           .padding({.horizontal = 12, .vertical = 4}));
    }
    return form(
        1,
        hstack(
            {.spacing = 8},
            {
                symbol(Symbols::map).font(systemFont(14)).colour(palette.fair),
                text("Not in the list — look up " + quoted + " with Apple Maps").font(hanken(14)),
            })
            .padding({.horizontal = 12, .vertical = 4})
            .button([state] { state->lookUp(); }, PressKeys::space)
            .tooltip("Look for smaller places, beyond the list"));
}

bool offersLookUp(const std::string& query) {
    const std::string_view typed = unicode::trimmed(query);
    return unicode::firstCharacters(typed, leastForLookUp - 1).size() < typed.size();
}

View results(const State& state, const Palette& palette) {
    const std::vector<City> cities = state->matches();
    std::vector<const City*> shown;
    shown.reserve(cities.size());
    for (const City& city : cities)
        shown.push_back(&city);
    const std::vector<std::string> names = Cities::rowNames(shown);
    std::vector<std::pair<std::uint64_t, View>> rows;
    for (std::size_t i = 0; i < cities.size(); ++i)
        rows.emplace_back(std::hash<std::string>()(cities[i].id() + cities[i].region),
                          result(state, palette, cities[i], names[i]).revealed());
    return vstack({.align = Horizontal::leading, .spacing = 6},
                  {
                      group(std::move(rows)),
                      when(offersLookUp(state->query()),
                           [&] { return lookUpRow(state, palette).revealed(); }),
                  });
}

}  // namespace

View citySearch(const State& state, const Palette& palette) {
    if (state->isFull()) {
        return form(0, paragraph("Six places is the most the ribbon shows comfortably. Remove one "
                                 "with − to make room for another.")
                           .font(hanken(13))
                           .padding({.horizontal = 14, .vertical = 14})
                           .frame({.maxWidth = infinite, .alignment = leading})
                           .background(chipGround(palette, 10)));
    }
    return form(1, vstack({.align = Horizontal::leading, .spacing = 8},
                          {searchField(state, palette), results(state, palette)}));
}

}  // namespace noonward
