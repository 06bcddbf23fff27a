#include "views/welcome/WelcomeView.h"

#include <utility>

#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"

namespace noonward {

using namespace kit;

WelcomeView::WelcomeView(Store&, NotchUI&, std::function<void(bool)> onDone)
    : onDone_(std::move(onDone)) {}

View WelcomeView::body(Scheme scheme, Backing backing) const {
    const Palette& palette = Palette::of(scheme);
    return panelChrome({.palette = palette, .backing = backing},
                       vstack({.align = Horizontal::leading, .spacing = 22},
                              {
                                  text("Noonward").font(hanken(30, Weight::semibold)),
                                  text("The time elsewhere, tucked into your notch.")
                                      .font(hanken(16))
                                      .colour(palette.mist),
                                  text("Got it")
                                      .font(hanken(14, Weight::semibold))
                                      .colour(white)
                                      .padding({.horizontal = 20, .vertical = 8})
                                      .background(roundedRectangle(10).fill(palette.button))
                                      .button([done = onDone_] { done(false); }),
                              })
                           .padding({.horizontal = 32, .vertical = 32})
                           .frame({.width = 620, .alignment = leading}));
}

}  // namespace noonward
