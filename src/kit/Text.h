#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/View.h"

namespace kit {

/// A stretch of a line of text; without a font or colour of its own it takes what flows down.
struct TextRun {
    std::string text;  ///< UTF-8
    std::optional<Font> font = std::nullopt;
    std::optional<Colour> colour = std::nullopt;
};

/// One line of text, UTF-8. Where it is given less room than it needs it ends with "…". Line
/// breaks and control characters are shown as spaces.
View text(std::string_view line);
View text(const char* line);
View text(const std::vector<TextRun>& runs);

}  // namespace kit
