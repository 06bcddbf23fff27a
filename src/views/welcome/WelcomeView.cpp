#include "views/welcome/WelcomeView.h"

#include <utility>

#include "kit/Interaction.h"
#include "kit/Paragraph.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double width = 620;
constexpr double margin = 32;
constexpr double betweenSections = 22;
constexpr double symbolSquare = 30;
constexpr double symbolSize = 17;
constexpr double buttonRadius = 10;

View titleBlock(const Palette& palette) {
    return vstack({.align = Horizontal::leading, .spacing = 4},
                  {
                      text("Noonward").font(hanken(30, Weight::semibold)),
                      text("The time elsewhere, tucked into your notch.")
                          .font(hanken(16))
                          .colour(palette.mist),
                  });
}

View step(const Palette& palette, SymbolSource picture, const char* title, const char* words) {
    return hstack({.align = Vertical::top, .spacing = 14},
                  {
                      symbol(picture)
                          .font(systemFont(symbolSize))
                          .colour(palette.fair)
                          .frame({.width = symbolSquare, .height = symbolSquare})
                          .background(roundedRectangle(8).fill(palette.chip)),
                      vstack({.align = Horizontal::leading, .spacing = 3},
                             {
                                 text(title).font(hanken(16, Weight::semibold)),
                                 paragraph(words).font(hanken(14)).colour(palette.mist),
                             }),
                  });
}

View chooseButton(const Palette& palette, std::function<void()> press) {
    return text("Choose my places")
        .font(hanken(14, Weight::semibold))
        .colour(palette.text)
        .padding({.horizontal = 16, .vertical = 8})
        .background(
            roundedRectangle(buttonRadius).fill(palette.chip).strokeInside(palette.chipBorder, 1))
        .button(std::move(press), PressKeys::space)
        .tooltip("Go on to Places & appearance");
}

View gotItButton(const Palette& palette, std::function<void()> press) {
    return text("Got it")
        .font(hanken(14, Weight::semibold))
        .colour(white)
        .padding({.horizontal = 20, .vertical = 8})
        .background(roundedRectangle(buttonRadius).fill(palette.button))
        .button(std::move(press), PressKeys::spaceAndReturn)
        .tooltip("Go on to the ribbon (return)");
}

}  // namespace

WelcomeView::WelcomeView(Store&, NotchUI&, std::function<void(bool)> onDone)
    : onDone_(std::move(onDone)) {}

View WelcomeView::body(Scheme scheme, Backing backing) const {
    const Palette& palette = Palette::of(scheme);
    return panelChrome(
        {.palette = palette, .backing = backing},
        vstack({.align = Horizontal::leading, .spacing = betweenSections},
               {
                   titleBlock(palette),
                   step(palette, Symbols::pointer, "Rest your pointer on the notch",
                        "Two of your places appear either side of the camera. Move away and they "
                        "fold back."),
                   step(palette, Symbols::strips, "Click it, or press ⌃⌥T",
                        "Every place as a 24-hour strip, lined up on the same moment, with the "
                        "fairest hour for a meeting outlined."),
                   step(palette, Symbols::envelope, "Propose a time",
                        "Click an hour, nudge it five minutes at a time, or type “7:30am NY tue”. "
                        "Then copy it for an email."),
                   paragraph("Right-click the notch for Places & appearance. Noonward opens when "
                             "you log in; you can switch that off there.")
                       .font(hanken(13))
                       .colour(palette.mist),
                   hstack({.spacing = 12},
                          {
                              spacer(),
                              chooseButton(palette, [done = onDone_] { done(true); }),
                              gotItButton(palette, [done = onDone_] { done(false); }),
                          }),
               })
            .padding({.horizontal = margin, .vertical = margin})
            .frame({.width = width, .alignment = leading}));
}

}  // namespace noonward
