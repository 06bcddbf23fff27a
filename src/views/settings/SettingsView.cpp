#include "views/settings/SettingsView.h"

#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "model/Store.h"
#include "views/NotchUI.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"

namespace noonward {

using namespace kit;

namespace {

View doneButton(const Palette& palette, NotchUI& ui) {
    return text("Done")
        .font(hanken(13, Weight::semibold))
        .colour(white)
        .padding({.horizontal = 16, .vertical = 7})
        .background(roundedRectangle(10).fill(palette.button))
        .button([&ui] { ui.settingsShown = false; });
}

}  // namespace

SettingsView::SettingsView(Store& store, NotchUI& ui, Options) : store_(store), ui_(ui) {}

View SettingsView::body(Scheme scheme, Backing backing) const {
    const Palette& palette = Palette::of(scheme);
    const std::string count =
        std::to_string(store_.config().places.size()) + " of " + std::to_string(Store::maxPlaces);
    return panelChrome(
        {.palette = palette, .backing = backing},
        vstack({.align = Horizontal::leading, .spacing = 22},
               {
                   hstack({.spacing = 16},
                          {
                              text("Places & appearance").font(hanken(22, Weight::semibold)),
                              spacer(),
                              doneButton(palette, ui_),
                          }),
                   text("Your places  ·  " + count).font(hanken(13, Weight::semibold)),
               })
            .padding({.horizontal = Metrics::pad, .top = 30, .bottom = 18})
            .frame({.width = Metrics::panelWidth, .height = 540, .alignment = topLeading}));
}

}  // namespace noonward
