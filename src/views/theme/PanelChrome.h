#pragma once

#include "kit/DropShadow.h"
#include "kit/View.h"
#include "views/theme/Palette.h"

namespace noonward {

/// Height of the brand stripe, below which the content begins, points.
inline constexpr double stripeHeight = 6;

/// What lies behind a panel's content.
enum class Backing {
    opaque,  ///< the plain tint: pictures
    square,  ///< the plain tint up to the corners: windows that cannot be translucent
    clear,   ///< nearly the plain tint: what is behind the window is seen sharp; casts a shadow
    frosted  ///< the tint over what the desktop shows, blurred, behind the window; casts a shadow
};

struct PanelChromeSpec {
    const Palette& palette;
    bool solid = false;  ///< free-standing: all corners round; otherwise it hangs from an edge
    Backing backing = Backing::opaque;
};

/// The outline of a panel that casts a shadow, in its frame.
QPainterPath panelOutline(const QRectF& frame);

/// What it casts.
const kit::DropShadow& panelShadow();

/// The frame of every panel around its content, exactly as large as that asks for: brand stripe,
/// background, corners and border.
kit::View panelChrome(const PanelChromeSpec& options, kit::View content);

}  // namespace noonward
