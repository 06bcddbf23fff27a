#pragma once

#include <functional>
#include <string>

#include "kit/Symbol.h"
#include "views/ribbon/RibbonContext.h"

namespace noonward {

/// A small button of a symbol, mostly an arrow, and a text; the symbol comes last when `trailing`.
/// `name` is for those who cannot see the symbol.
kit::View nudge(const Palette& palette, kit::SymbolSource direction, const std::string& title,
                bool trailing, const std::string& name, std::function<void()> action);

/// The meeting lengths, the present one highlighted.
kit::View durationPicker(const RibbonContext& context);

/// Previous day, the shown date, next day and the way back to today.
kit::View daySwitcher(const RibbonContext& context);

kit::View copyButton(const RibbonContext& context);

}  // namespace noonward
