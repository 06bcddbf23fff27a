#pragma once

#include "kit/Interaction.h"
#include "kit/View.h"

namespace kit {

/// What a placeholder keeps of its text's opacity.
inline constexpr double placeholderOpacity = 0.45;

/// A borderless line of text to edit: as wide as it may be, as high as its font. An empty one
/// shows its placeholder, dimmed.
View textField(TextFieldSpec field);

}  // namespace kit
