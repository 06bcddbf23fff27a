#include "views/theme/PanelChrome.h"

#include <utility>

#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "views/theme/Velmora.h"

namespace noonward {

using namespace kit;

namespace {

constexpr double solidTopRadius = 18;
constexpr double bottomRadius = 26;

View brandStripe() {
    Views colours;
    for (const Colour& colour : Velmora::ribbon)
        colours.push_back(rectangle().fill(colour));
    return hstack({.spacing = 0}, colours).frame({.height = stripeHeight});
}

// Letters behind the window must not be read through those in it.
constexpr double clearOpacity = 0.96;

// The desktop blurs what is behind the window where it can; here only the tint is laid over it.
Colour backdrop(const PanelChromeSpec& options) {
    const Palette& palette = options.palette;
    if (options.solid) return palette.tint;
    if (options.backing == Backing::clear) return palette.tint.opacity(clearOpacity);
    return options.backing == Backing::frosted ? palette.tint.opacity(palette.tintOpacity)
                                               : palette.tint;
}

CornerRadii corners(const PanelChromeSpec& options) {
    if (options.solid) return {solidTopRadius, solidTopRadius, bottomRadius, bottomRadius};
    if (options.backing == Backing::square) return {};
    return {0, 0, bottomRadius, bottomRadius};
}

}  // namespace

QPainterPath panelOutline(const QRectF& frame) {
    return roundedPath(frame, {0, 0, bottomRadius, bottomRadius}, CornerStyle::continuous);
}

const DropShadow& panelShadow() {
    static const DropShadow shadow{.radii = {0, 0, bottomRadius, bottomRadius},
                                   .colour = black.opacity(0.4),
                                   .blur = 22,
                                   .below = 8};
    return shadow;
}

View panelChrome(const PanelChromeSpec& options, View content) {
    const Shape outline = roundedRectangle(corners(options));
    const bool castsShadow = !options.solid && (options.backing == Backing::clear ||
                                                options.backing == Backing::frosted);

    return vstack({.align = Horizontal::leading, .spacing = 0},
                  {
                      brandStripe(),
                      std::move(content),
                  })
        .colour(options.palette.text)
        .background(rectangle().fill(backdrop(options)))
        .clip(outline)
        .overlay(outline.strokeInside(options.palette.border, 1))
        .background(when(castsShadow, [] { return dropShadow(panelShadow()); }))
        .fixedSize();
}

}  // namespace noonward
