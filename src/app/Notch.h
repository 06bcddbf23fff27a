#pragma once

#include <optional>
#include <vector>

#include "platform/Screens.h"

namespace noonward {

/// The camera's place at the top of a screen, in desktop points, y growing downwards.
struct Notch {
    QRectF rect;
    QRectF screen;  ///< frame of the screen it is on

    bool operator==(const Notch&) const = default;
};

/// The notch of the first screen that has one. Where none has, or the strips beside it are not
/// known, a place of the usual size at the top centre of the main screen, as thick as the status
/// bar; nothing without a main screen.
std::optional<Notch> findNotch(const std::vector<Screen>& screens,
                               const std::optional<Screen>& main, double statusBarThickness);

/// Where the pointer must rest for the notch to open. Over a clock of the desktop's own that is the
/// topmost edge alone, and the rest of it stays the desktop's.
QRectF hoverZone(const QRectF& notch, bool overOwnClock = false);

/// Where the pointer may be without the notch folding back, given the frame of its window.
QRectF stayZone(const QRectF& cap);

/// Whether a point lies in a rectangle whose right and bottom edges do not belong to it.
bool holds(const QRectF& rect, const std::optional<QPointF>& point);

}  // namespace noonward
