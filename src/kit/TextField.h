#pragma once

#include "kit/Interaction.h"
#include "kit/View.h"

namespace kit {

/// A borderless line of text to edit: as wide as it may be, as high as its font. An empty one
/// shows its placeholder, dimmed.
View textField(TextFieldSpec field);

}  // namespace kit
