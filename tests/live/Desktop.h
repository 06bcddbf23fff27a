#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "live/Hand.h"
#include "live/Sight.h"
#include "support/PrivateBus.h"
#include "support/Process.h"
#include "support/ServerProcess.h"
#include "support/TempFolder.h"

namespace noonward::test {

/// What else runs on the desktop.
enum class Surroundings { bare, openbox, picom };

/// A line of copied text: what the clock in a place shows.
struct Clock {
    std::string place;
    int minutes;  ///< since the week began
};

/// The program as it is started on a desktop, with an X server and a message bus of its own and
/// nobody else's settings. A step that does not come about ends the test.
class Desktop : public testing::Test {
 protected:
    Desktop();
    /// The program ends when it is asked to, and has never said anything.
    void TearDown() override;

    // ---- around the program ----

    void furnish(Surroundings surroundings);
    /// Starts the program and waits until it watches the notch.
    void launch();
    /// Waits until the program watches the notch, or has ended.
    void seeStarted();
    /// What the programs that it starts find in their environment beside the usual.
    std::map<std::string, std::string> announced;
    std::map<std::string, std::string> environment() const;
    /// Starts a copy of it, and waits for nothing.
    std::unique_ptr<Process> startCopy();
    /// Its exit status; the number of the signal that killed it, negative.
    int exitStatus();
    int exitStatus(Process& process);
    /// Another program's window, with the keyboard.
    xcb_window_t showOther(const QRect& at = {100, 500, 400, 300});
    /// Sends something on the bus, in the words of dbus-send.
    void sendOnBus(std::vector<std::string> words);
    void sendSignal(const std::string& member);
    /// Sets monitors up as the tool of that name does; whether it could.
    bool xrandr(std::vector<std::string> words);

    std::filesystem::path configFile() const { return folder / "data/Noonward/places.json"; }
    /// What is saved. It is written in place: a look that falls into that is taken again.
    nlohmann::json config() const;
    /// Writes the file before the program reads it.
    void configure(const nlohmann::json& changes);

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

    /// Waits for something that is to come about; its name is for when it does not.
    template <typename Condition>
    void see(const std::string& what, Condition condition) {
        if (!until(condition)) miss(what);
    }
    template <typename Condition>
    static bool until(Condition condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(4));
        }
        return true;
    }
    /// Whether it is so all the time, for things that would soon be seen if they came.
    template <typename Condition>
    static bool staysFor(std::chrono::milliseconds time, Condition condition) {
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end) {
            if (!condition()) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(4));
        }
        return true;
    }

    /// Where the program waits for the pointer, in pixels.
    QRect trap{700, -6, 200, 32};

    static constexpr std::uint32_t wallpaper = 0x336699;
    static constexpr QPoint notch{800, 12};
    static constexpr QPoint nowhere{1500, 850};
    static constexpr int left = 202;  // of the panel
    static constexpr int top = 24;
    static constexpr int settingsHeight = 546;

    TempFolder folder;
    ServerProcess server;
    PrivateBus bus;
    const std::string display = ":" + server.line();
    Hand hand{display.c_str()};
    Sight sight{display.c_str()};
    OtherClient other{display.c_str()};
    std::string programFile = NOONWARD_PROGRAM;
    std::unique_ptr<Process> program;

 private:
    [[noreturn]] void miss(const std::string& what);

    xcb_window_t clipboardWindow_ = XCB_WINDOW_NONE;
    std::optional<Process> companion_;
};

}  // namespace noonward::test
