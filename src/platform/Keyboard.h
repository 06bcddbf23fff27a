#pragma once

#include <string>

class QKeyEvent;

namespace noonward {

/// What a key press means.
struct KeyPress {
    enum class Key { escape, leftArrow, rightArrow, other };
    Key key = Key::other;
    bool shift = false;
    bool command = false;    ///< Control
    std::string characters;  ///< typed, all modifiers applied; UTF-8
    /// Without Control, Alt, Super and Caps Lock; Shift and AltGr count.
    std::string charactersUnmodified;
};

/// Reads key presses with the keyboard's current layout.
class Keyboard {
 public:
    virtual ~Keyboard() = default;
    virtual KeyPress read(const QKeyEvent& event) const = 0;
};

}  // namespace noonward
