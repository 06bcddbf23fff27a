#pragma once

#include <string_view>

#include "kit/View.h"

namespace kit {

/// Text, UTF-8, over as many lines as the offered width asks for, broken where the language breaks
/// lines (UAX #14). It keeps its full height; a word that is wider than the room ends with "…".
View paragraph(std::string_view text);

}  // namespace kit
