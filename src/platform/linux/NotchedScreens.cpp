#include "platform/linux/NotchedScreens.h"

#include <QScreen>

namespace noonward {

void NotchedScreens::addNotch(Screen& screen, const QScreen& described) const {
    // Upside down, the camera is at the bottom.
    if (notched_ && described.orientation() != Qt::InvertedLandscapeOrientation)
        enterNotch(screen, described.name(), *notched_);
}

}  // namespace noonward
