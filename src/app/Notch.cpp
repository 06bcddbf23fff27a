#include "app/Notch.h"

#include <algorithm>

namespace noonward {
namespace {

constexpr double usualWidth = 184;
constexpr double leastHeight = 24;
constexpr double edge = 2;

// Desktops give the strips in the screen's coordinates or in their own. Where both would be
// possible they are the screen's.
bool inScreenCoordinates(const QRectF& left, const QRectF& frame) {
    return left.left() < frame.left() || left.right() <= frame.width();
}

Notch between(const QRectF& left, const QRectF& right, const Screen& screen) {
    const QRectF& frame = screen.frame;
    const double shift = inScreenCoordinates(left, frame) ? frame.left() : 0;
    return {
        .rect = {left.right() + shift, frame.top(), right.left() - left.right(), screen.topInset},
        .screen = frame};
}

Notch atTopCentre(const QRectF& frame, double statusBarThickness) {
    return {.rect = {frame.center().x() - usualWidth / 2, frame.top(), usualWidth,
                     std::max(statusBarThickness, leastHeight)},
            .screen = frame};
}

}  // namespace

std::optional<Notch> findNotch(const std::vector<Screen>& screens,
                               const std::optional<Screen>& main, double statusBarThickness) {
    const auto notched = std::find_if(screens.begin(), screens.end(),
                                      [](const Screen& screen) { return screen.topInset > 0; });
    if (notched != screens.end() && notched->auxiliaryTopLeft && notched->auxiliaryTopRight)
        return between(*notched->auxiliaryTopLeft, *notched->auxiliaryTopRight, *notched);
    if (!main) return std::nullopt;
    return atTopCentre(main->frame, statusBarThickness);
}

QRectF hoverZone(const QRectF& notch, bool overOwnClock) {
    const double below = overOwnClock ? edge - notch.height() : 2;
    return notch.adjusted(-8, -6, 8, below);
}

QRectF stayZone(const QRectF& cap) {
    return cap.adjusted(-16, -16, 16, 16);
}

bool holds(const QRectF& rect, const std::optional<QPointF>& point) {
    return point && point->x() >= rect.left() && point->x() < rect.right() &&
           point->y() >= rect.top() && point->y() < rect.bottom();
}

}  // namespace noonward
