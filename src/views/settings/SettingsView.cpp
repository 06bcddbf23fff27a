#include "views/settings/SettingsView.h"

#include <array>

#include "kit/Scroll.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "views/NotchUI.h"
#include "views/settings/CitySearch.h"
#include "views/settings/PlaceList.h"
#include "views/settings/SettingsControls.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Pill.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

using State = std::shared_ptr<SettingsState>;

constexpr double bottomMargin = 18;
constexpr double belowColumn = 3;  // once all of it is scrolled up

struct Appearance {
    const char* value;  // as it is stored
    const char* label;
    const char* tip;
    SymbolSource symbol;
};
constexpr std::array appearances{
    Appearance{"system", "Match Mac", "Light or dark as everything else is", Symbols::halfCircle},
    Appearance{"light", "Light", "Always light", Symbols::sun},
    Appearance{"dark", "Dark", "Always dark", Symbols::moon},
};

View appearanceButton(Store& store, const Palette& palette, const Appearance& choice) {
    const bool selected = store.config().appearance == choice.value;
    return hstack({.spacing = 5}, {symbol(choice.symbol), text(choice.label)})
        .font(hanken(12, selected ? Weight::semibold : Weight::regular))
        .colour(selected ? white : palette.text)
        .padding({.horizontal = 12, .vertical = 6})
        .background(roundedRectangle(8).fill(selected ? palette.button : clear))
        .choice(selected, [&store, value = choice.value] { store.setAppearance(value); })
        .tooltip(choice.tip);
}

View appearancePicker(Store& store, const Palette& palette) {
    return hstack({.spacing = 2},
                  {
                      forEach(
                          appearances, [](const Appearance& choice) { return choice.value[0]; },
                          [&](const Appearance& choice) {
                              return appearanceButton(store, palette, choice);
                          }),
                  })
        .padding({.horizontal = 3, .vertical = 3})
        .background(chipGround(palette, 10));
}

View rollingSwitch(const State& state, const Palette& palette) {
    return labelledSwitch(
               palette, text("Keep now in the middle").font(hanken(12, Weight::semibold)),
               state->store.config().rolling,
               [state](bool on) { state->animate([&] { state->store.setRolling(on); }); })
        .tooltip(
            "The ribbon shows twelve hours either side of now, and the rows drift as time passes");
}

View doneButton(NotchUI& ui, const Palette& palette) {
    return text("Done")
        .font(hanken(13, Weight::semibold))
        .colour(white)
        .padding({.horizontal = 16, .vertical = 7})
        .background(roundedRectangle(10).fill(palette.button))
        .button([&ui] { ui.settingsShown = false; }, PressKeys::spaceAndReturn)
        .tooltip("Back to the ribbon (return)");
}

View header(const State& state, const Palette& palette) {
    return hstack({.spacing = 16},
                  {
                      text("Places & appearance").font(hanken(22, Weight::semibold)),
                      appearancePicker(state->store, palette),
                      rollingSwitch(state, palette),
                      spacer(),
                      doneButton(state->ui, palette),
                  });
}

View places(const State& state, const Palette& palette) {
    const Font caption = hanken(13, Weight::semibold);
    const std::string count = std::to_string(state->store.config().places.size()) + " of " +
                              std::to_string(Store::maxPlaces);
    const View column = vstack({.align = Horizontal::leading, .spacing = 8},
                               {
                                   text("Your places  ·  " + count).font(caption),
                                   placeList(state, palette),
                                   text("Add a place").font(caption),
                                   citySearch(state, palette),
                               });
    // It goes on below the margin, where its lower edge fades.
    return scroll(column.padding({.bottom = belowColumn}), state->scrolled(),
                  [state](double position) { state->scrolled = position; })
        .frame({.width = 560})
        .padding({.bottom = -bottomMargin});
}

View legend(const Palette& palette) {
    return hstack({},
                  {
                      symbol(Symbols::starFilled).colour(palette.fair),
                      text("  Two favourites sit beside the notch.     "),
                      symbol(Symbols::houseFilled).colour(palette.homeTime),
                      text("  One is home, the clock the rest follow."),
                  })
        .font(hanken(12))
        .colour(palette.mist);
}

View updatesButton(NotchUI& ui, const Palette& palette) {
    const bool ready = ui.updateReady().has_value();
    return pill(
               palette, ready ? "Update to " + *ui.updateReady() : "Check for updates", ready,
               [&ui] { ui.onUpdates(); }, PressKeys::space)
        .tooltip("Check for a new version now (u in the ribbon)");
}

View program(const State& state, const Palette& palette) {
    NotchUI& ui = state->ui;
    return vstack(
        {.align = Horizontal::leading, .spacing = 14},
        {
            legend(palette),
            labelledSwitch(palette, text("Open at login").font(hanken(12, Weight::semibold)),
                           state->loginOn(),
                           [state](bool on) { state->animate([&] { state->setLogin(on); }); })
                .tooltip("Noonward waits at the notch as soon as you log in"),
            text("Noonward " + ui.version).font(hanken(12)).colour(palette.mist),
            hstack({.spacing = 8},
                   {
                       updatesButton(ui, palette),
                       pill(
                           palette, "Quit", false, [&ui] { ui.onQuit(); }, PressKeys::space)
                           .tooltip("Quit Noonward (⌘Q in the ribbon)"),
                   }),
        });
}

}  // namespace

SettingsView::SettingsView(Store& store, NotchUI& ui, const Services& services,
                           const Options& options)
    : state_(std::make_shared<SettingsState>(store, ui, services, options.query, options.editing)) {
}

View SettingsView::body(Scheme scheme, Backing backing) const {
    const Palette& palette = Palette::of(scheme);
    const View columns =
        hstack({.align = Vertical::top, .spacing = 28},
               {
                   places(state_, palette),
                   program(state_, palette).frame({.maxWidth = infinite, .alignment = topLeading}),
               });
    return panelChrome(
        {.palette = palette, .backing = backing},
        vstack({.align = Horizontal::leading, .spacing = 22}, {header(state_, palette), columns})
            .padding({.horizontal = Metrics::pad, .top = 30, .bottom = bottomMargin})
            .frame({.width = Metrics::panelWidth, .height = 540, .alignment = topLeading}));
}

}  // namespace noonward
