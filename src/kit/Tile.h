#pragma once

#include <QSizeF>
#include <functional>
#include <string>

#include "kit/Description.h"
#include "kit/View.h"

namespace kit {

/// A view of fixed size that is drawn once and then kept as a picture. `key` tells everything the
/// picture depends on, apart from the scale; `build` is asked only when no such picture is kept.
/// `says` is what stands in it, for those who cannot see it and for the text dump.
View tile(std::string key, QSizeF size, Description says, std::function<View()> build);

}  // namespace kit
