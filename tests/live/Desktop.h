#pragma once

#include <optional>
#include <string>
#include <vector>

#include "live/Session.h"
#include "live/X11Hand.h"
#include "live/X11Sight.h"
#include "support/ServerProcess.h"

namespace noonward::test {

/// What else runs on the desktop.
enum class Surroundings { bare, openbox, picom };

/// A line of copied text: what the clock in a place shows.
struct Clock {
    std::string place;
    int minutes;  ///< since the week began
};

/// The session of an X server.
class Desktop : public Session {
 protected:
    Desktop();

    // ---- around the program ----

    void furnish(Surroundings surroundings);
    /// Starts the program and waits until it watches the notch.
    void launch();
    /// Waits until the program watches the notch, or has ended.
    void seeStarted();
    /// Another program's window, with the keyboard.
    xcb_window_t showOther(const QRect& at = {100, 500, 400, 300});
    /// Sets monitors up as the tool of that name does; whether it could.
    bool xrandr(std::vector<std::string> words);

    // ---- what a user does ----

    void hoverNotch();
    void moveAway() { hand.movePointer(nowhere); }
    void leaveNotch();
    void openRibbon();
    /// Changes the meeting's length by its key, until it is saved.
    void changeLengthTo(int minutes);
    /// Presses a key that copies, and reads the clipboard as another program.
    std::string copied(const std::string& key = "c");
    /// Does something that copies.
    template <typename Act>
    std::string copiedBy(Act act, const std::string& type = "UTF8_STRING") {
        takeClipboard();
        act();
        see("a copy", [this] { return !hasClipboard(); });
        return paste(type);
    }
    std::string paste(const std::string& type);
    Clock copiedClock();
    void takeClipboard();
    bool hasClipboard();

    // ---- what a user sees ----

    std::optional<QRect> cap();
    std::optional<QRect> panel();
    /// Only when it can be seen.
    std::optional<QRect> seenPanel();
    std::optional<QRect> menu();
    bool isExpanded();
    bool isPanelSeen() { return seenPanel().has_value(); }
    bool isRibbonSeen() {
        const auto frame = seenPanel();
        return frame && frame->height() != settingsHeight;
    }
    bool areSettingsSeen() {
        const auto frame = seenPanel();
        return frame && frame->height() == settingsHeight;
    }
    bool isTrapLaid();
    /// The middle of an hour's cell in the first row.
    static QPoint hour(double column) {
        return {left + 342 + static_cast<int>(column * 32) + 15, top + 6 + 40 + 28};
    }
    static QPoint copyButton() {
        return {left + 1196 - 28 - 16 - 60, top + 6 + 40 + 120 + 18 + 25};
    }

    /// Where the program waits for the pointer, in pixels.
    QRect trap{700, -6, 200, 32};

    ServerProcess server;
    const std::string display = ":" + server.line();
    X11Hand hand{display.c_str()};
    X11Sight sight{display.c_str()};
    OtherClient other{display.c_str()};

 private:
    std::string situation() override;

    xcb_window_t clipboardWindow_ = XCB_WINDOW_NONE;
    std::optional<Process> companion_;
};

}  // namespace noonward::test
