#pragma once

#include <QRect>
#include <QRegion>

class QWidget;

namespace noonward {

/// What our windows need of the desktop beyond what a widget can do by itself. Widgets are
/// top-level ones that have been adopted.
class WindowSystem {
 public:
    enum class Level { panel, cap };  ///< from back to front

    /// What a window lets be seen of what lies behind it.
    enum class Translucency {
        none,
        clear,   ///< as it is
        blurred  ///< blurred, where that is asked for
    };

    virtual ~WindowSystem() = default;

    /// What windows can be at this moment.
    virtual Translucency translucency() const = 0;

    /// Makes the widget a translucent window that no window manager touches, seen on every
    /// workspace and kept above other programs' windows and in order of the levels. Comes before
    /// all else: sets the widget's window flags and makes its native window, which it must not have
    /// yet. Flags are left alone afterwards.
    virtual void adopt(QWidget& window, Level level) = 0;

    /// Brings it above the others of its level.
    virtual void raise(QWidget& window) = 0;

    /// Only presses inside `region` (window points) meet the window; others go to what is below.
    /// An empty region lets all of them through.
    virtual void setInputRegion(QWidget& window, const QRegion& region) = 0;
    /// Asks for what lies behind `region` to be blurred; an empty one takes that back.
    virtual void setBlurBehind(QWidget& window, const QRegion& region) = 0;

    /// Sends the keyboard to the window without activating the program, and remembers who had it.
    /// Call after showing, and whenever the user turns to the window again; does nothing where it
    /// has the keyboard.
    virtual void takeKeys(QWidget& window) = 0;
    /// Gives the keyboard back to who had it, if the window still has it; call before hiding.
    virtual void giveKeysBack(QWidget& window) = 0;
};

}  // namespace noonward
