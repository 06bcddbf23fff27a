#pragma once

#include "kit/Interaction.h"
#include "kit/View.h"

namespace kit {

/// What a placeholder keeps of its text's opacity.
inline constexpr double placeholderOpacity = 0.45;

/// A borderless line of text to edit: as wide as it may be, as high as its font. An empty one
/// shows its placeholder, dimmed.
View textField(TextFieldSpec field);

/// A day to set part by part: day, month, year, as wide as it is written.
View dateField(DateFieldSpec field);

/// How fields write days, in the letters of QDate::toString.
QString dateFormat();

}  // namespace kit
