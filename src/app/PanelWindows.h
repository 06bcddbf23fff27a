#pragma once

#include <QRectF>
#include <chrono>
#include <functional>
#include <optional>

#include "app/Lifetime.h"
#include "app/Notch.h"
#include "base/Published.h"

namespace kit {
class Animations;
class Curve;
}  // namespace kit

namespace noonward {

class Feedback;
class MainQueue;
class NotchUI;
class Pointer;
class Screens;
class Store;
class Window;

/// Opens and closes the two windows at the notch: the small one around it, whose clocks slide out
/// to its sides, and the panel that hangs below. Each operation may be called at any time; one that
/// undoes another overtakes what is left of it.
class PanelWindows {
 public:
    struct Services {
        Window& cap;    ///< around the notch
        Window& panel;  ///< below it
        Store& store;
        NotchUI& ui;
        kit::Animations& animations;
        MainQueue& queue;
        const Screens& screens;
        const Pointer& pointer;
        Feedback& feedback;
    };

    enum class Content { asItIs, settings };

    /// How the notch opens out: a little too far at first.
    static kit::Curve opening();

    /// The services must outlive it. Shows nothing yet, and knows no notch before `findNotch`.
    explicit PanelWindows(const Services& services);

    /// Looks for the notch anew. Without any screen it stays where it was.
    void findNotch();
    const QRectF& notch() const { return notch_; }  ///< desktop points
    /// Where the pointer must rest for it to open; desktop points.
    QRectF hoverZone() const { return noonward::hoverZone(notch_, overOwnClock_); }
    /// Announces that the notch has been looked for.
    Announcer& notchFound() { return notchFound_; }

    void expand();    ///< opens the notch out and shows its clocks
    void collapse();  ///< folds it back, unless a panel hangs from it

    /// Shows the panel with the keys; while it is shown, changes what it shows at most.
    void openPanel(Content content = Content::asItIs);
    /// Hides the panel, whatever it shows, and counts the welcome as seen if it was that.
    void closePanel();
    void togglePanel();
    /// Shows the welcome a moment from now, when the desktop has settled after a start.
    void welcomeSoon();

    /// Sizes the panel to what it shows and hangs it under the notch, inside the screen.
    void layoutPanel();

    /// Whether the pointer is over the opened notch or close to it.
    bool pointerNear() const;

 private:
    // Which way the notch, or the panel, was sent last.
    struct Course {
        bool open = false;
        unsigned turns = 0;

        void turn(bool toOpen) {
            open = toOpen;
            ++turns;
        }
    };

    std::function<void()> onCourse(const Course& course, std::function<void()> step) const;
    void next(const Course& course, std::function<void()> step);
    void later(std::chrono::milliseconds delay, const Course& course, std::function<void()> step);
    void placeCap();
    void openOut();
    void putAway();

    Services services_;
    QRectF notch_;
    bool overOwnClock_ = false;     // the desktop's
    std::optional<QRectF> screen_;  // frame of the notch's screen
    Course notchCourse_;
    Course panelCourse_;
    Announcer notchFound_;
    Lifetime lifetime_;
};

}  // namespace noonward
