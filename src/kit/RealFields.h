#pragma once

#include <memory>

#include "kit/Fields.h"

namespace kit {

/// What the widgets keep free at either side of their text, whatever they are told; points.
inline constexpr int fieldMargin = 2;

/// The widget for a text or date field, a child of `host`, which owns the widget.
std::unique_ptr<RealField> makeRealField(const Placed& field, QWidget& host);

}  // namespace kit
