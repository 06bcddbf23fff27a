#pragma once

#include <memory>

#include "kit/Fields.h"

namespace kit {

/// The widget for a text or date field or a button that keys press, a child of `host`, which owns
/// the widget.
std::unique_ptr<RealField> makeRealField(const Placed& field, QWidget& host);

}  // namespace kit
