#pragma once

#include <QRectF>
#include <array>
#include <optional>

#include "app/Lifetime.h"
#include "base/Published.h"

namespace noonward {

class NotchUI;
class PanelWindows;
class Pointer;
class RepeatingTimer;

/// Opens the notch out where the pointer rests on it, and folds it back once the pointer has been
/// away for a while. It looks 25 times a second, but only while there is something to see: with the
/// notch folded and the pointer elsewhere it waits to be woken, and while the panel is shown it
/// sleeps.
class Hover {
 public:
    /// Begins at once, or when the notch is found. All must outlive it.
    Hover(PanelWindows& windows, NotchUI& ui, Pointer& pointer, RepeatingTimer& timer);
    ~Hover();
    Hover(const Hover&) = delete;
    Hover& operator=(const Hover&) = delete;

 private:
    enum class Stage { folded, expanded, panel };

    Stage stageNow() const;
    void follow();
    void watch();
    void waitAtTheNotch();
    void tick();
    void tickFolded();
    void tickExpanded();

    PanelWindows& windows_;
    NotchUI& ui_;
    Pointer& pointer_;
    RepeatingTimer& timer_;
    Stage stage_;
    int dwell_ = 0;  // ticks in a row over the folded notch
    int away_ = 0;   // ticks in a row away from the expanded one
    Lifetime lifetime_;
    std::optional<Subscription> ticks_;
    std::array<Subscription, 2> watches_;
};

}  // namespace noonward
