#pragma once

#include <QByteArray>

#include "kit/View.h"

namespace noonward {

/// A view as PNG data in its ideal size, two pixels a point; empty when there is nothing to draw.
QByteArray render(const kit::View& view);

/// What every view of the program starts from: the desktop's font, black.
kit::Environment rootEnvironment();

}  // namespace noonward
