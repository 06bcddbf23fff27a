#pragma once

#include "kit/RoundedPath.h"
#include "kit/View.h"

namespace kit {

/// The soft shadow of a rounded rectangle that fills the same room: painted all around it, but not
/// where it stands.
struct DropShadow {
    CornerRadii radii;
    Colour colour;
    double blur = 0;   ///< twice the standard deviation, points
    double below = 0;  ///< by how much it is lower than what casts it, points
};

View dropShadow(const DropShadow& shadow);

/// How far a shadow reaches beyond its room on each side, points.
Insets reach(const DropShadow& shadow);

}  // namespace kit
