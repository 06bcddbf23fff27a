#pragma once

#include <QRectF>
#include <functional>
#include <optional>
#include <vector>

#include "base/Published.h"

namespace noonward {

/// One monitor. Rectangles are in points, y growing downwards; the frame in desktop coordinates.
struct Screen {
    QRectF frame;
    double topInset = 0;  ///< height of what the camera takes from the top; 0 without a notch
    /// The usable strips beside the camera, in the screen's own or in desktop coordinates.
    std::optional<QRectF> auxiliaryTopLeft;
    std::optional<QRectF> auxiliaryTopRight;

    bool operator==(const Screen&) const = default;
};

/// The monitors of this desktop.
class Screens {
 public:
    virtual ~Screens() = default;
    virtual std::vector<Screen> all() const = 0;
    virtual std::optional<Screen> main() const = 0;  ///< the primary one; nothing without any
    /// Height in points of what the desktop keeps free at the top of the main screen; 0 where that
    /// is not known.
    virtual double statusBarThickness() const = 0;
    /// Whether the desktop keeps its own clock at the top centre, under the notch: what is clicked
    /// there is meant for that.
    virtual bool hasOwnClock() const { return false; }
    /// Calls back after monitors have come, gone or changed, once for all of a turn's changes.
    [[nodiscard]] virtual Subscription onChange(std::function<void()> action) = 0;
};

}  // namespace noonward
