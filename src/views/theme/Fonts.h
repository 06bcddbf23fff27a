#pragma once

#include "kit/Font.h"

namespace noonward {

/// The program's text font. All its digits are equally wide, so that changing times move nothing.
inline kit::Font hanken(double size, kit::Weight weight = kit::Weight::regular) {
    return {QStringLiteral("Hanken Grotesk"), size, weight};
}

/// Makes the font's files known to this process. A missing file is skipped; a sans-serif font of
/// the desktop then stands in.
void registerFonts();

}  // namespace noonward
