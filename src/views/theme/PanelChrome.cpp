#include "views/theme/PanelChrome.h"

#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "views/theme/Velmora.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double stripeHeight = 6;
constexpr double solidTopRadius = 18;
constexpr double bottomRadius = 26;

View brandStripe() {
    Views colours;
    for (const Colour& colour : Velmora::ribbon)
        colours.push_back(rectangle().fill(colour));
    return hstack({.spacing = 0}, colours).frame({.height = stripeHeight});
}

// The desktop blurs what is behind the window where it can; here only the tint is laid over it.
Colour backdrop(const PanelChromeSpec& options) {
    const Palette& palette = options.palette;
    return options.solid || options.backing == Backing::opaque
               ? palette.tint
               : palette.tint.opacity(palette.tintOpacity);
}

}  // namespace

View panelChrome(const PanelChromeSpec& options, View content) {
    const double top = options.solid ? solidTopRadius : 0;
    const Shape outline = roundedRectangle(CornerRadii{top, top, bottomRadius, bottomRadius});

    return vstack({.align = Horizontal::leading, .spacing = 0},
                  {
                      brandStripe(),
                      content,
                  })
        .colour(options.palette.text)
        .background(rectangle().fill(backdrop(options)))
        .clip(outline)
        .overlay(outline.strokeInside(options.palette.border, 1))
        .fixedSize();
}

}  // namespace noonward
