#pragma once

#include <QSizeF>
#include <QString>
#include <filesystem>
#include <optional>

#include "platform/Screens.h"

namespace noonward {

/// The built-in display of a laptop whose camera sits in it, in pixels.
struct NotchedDisplay {
    QSizeF size;
    double strip = 0;   ///< height of the strip in whose middle the camera is
    double camera = 0;  ///< width
};

/// The display of this computer, if it is a model that is known to have such a one: by its device
/// tree, else by its firmware's DMI product name, both below `root`.
std::optional<NotchedDisplay> notchedDisplay(const std::filesystem::path& root = "/");

/// Enters the camera, and the strips beside it in the screen's own coordinates. `connector` is the
/// output's name; only a built-in one counts, and only if the picture has the display's whole
/// height: systems may leave the strip dark, and show a picture without it.
void enterNotch(Screen& screen, const QString& connector, const NotchedDisplay& display);

}  // namespace noonward
