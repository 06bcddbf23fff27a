#pragma once

#include "kit/Colour.h"

namespace noonward {

enum class Scheme { light, dark };

/// The frosted backing behind a hanging panel.
enum class Material { popover, hudWindow };

/// All colours of the panels for one scheme.
struct Palette {
    kit::Colour tint;    ///< panel background
    double tintOpacity;  ///< of `tint` over the frosted backing
    Material material;
    kit::Colour text;
    kit::Colour mist;  ///< secondary text
    kit::Colour work;  ///< the four pairs: fill and label of an hour cell, by its phase
    kit::Colour workText;
    kit::Colour awake;
    kit::Colour awakeText;
    kit::Colour asleep;
    kit::Colour asleepText;
    kit::Colour selected;  ///< the proposed meeting
    kit::Colour off;
    kit::Colour offText;
    kit::Colour now;
    kit::Colour fair;      ///< the fairest hour, and small accents
    kit::Colour homeTime;  ///< the home place's time and house
    kit::Colour proposed;  ///< the caption "Proposed"
    kit::Colour border;
    kit::Colour chip;
    kit::Colour chipBorder;
    kit::Colour button;  ///< primary buttons and selected segments

    static const Palette& of(Scheme scheme);
    static const Palette dark;
    static const Palette light;
};

}  // namespace noonward
