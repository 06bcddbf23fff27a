#include "live/Desktop.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <sstream>
#include <stdexcept>

namespace noonward::test {
namespace {

std::vector<std::string> xServer(const std::string& readyEnd) {
    return {"Xvfb",        "-displayfd", readyEnd, "-screen", "0",
            "1600x900x24", "-nolisten",  "tcp",    "-noreset"};
}

Clock readClock(const std::string& line) {
    static const std::string days = "SunMonTueWedThuFriSat";
    std::array<char, 64> place{};
    std::array<char, 4> day{};
    int hour = 0, minute = 0;
    if (std::sscanf(line.c_str(), "%63[^0-9]%d:%d %3s", place.data(), &hour, &minute, day.data()) !=
        4)
        throw std::runtime_error("no clock in \"" + line + "\"");
    std::string label = place.data();
    label.pop_back();
    const int weekday = static_cast<int>(days.find(day.data()) / 3);
    return {label, (weekday * 24 + hour) * 60 + minute};
}

}  // namespace

Desktop::Desktop() : server(xServer) {
    announced["DISPLAY"] = display;
    const std::uint32_t pixel = wallpaper;
    xcb_change_window_attributes(other.connection(), other.root(), XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(other.connection(), false, other.root(), 0, 0, 0, 0);
    other.sync();
    moveAway();
}

// ---- around the program ----

void Desktop::furnish(Surroundings surroundings) {
    if (surroundings == Surroundings::bare) return;
    const bool manager = surroundings == Surroundings::openbox;
    if (manager)
        companion_.emplace(std::vector<std::string>{"openbox"}, environment());
    else
        companion_.emplace(
            std::vector<std::string>{"picom", "--backend", "xrender", "--config", "/dev/null"},
            environment());
    see(manager ? "openbox" : "picom",
        [&] { return other.ownerOf(manager ? "WM_S0" : "_NET_WM_CM_S0") != XCB_WINDOW_NONE; });
    // A window manager lets windows that come while it starts wait for ever.
    const xcb_window_t scout = other.show({0, 0, 9, 9});
    see("windows", [&] {
        other.map(scout);
        return sight.isViewable(scout);
    });
    other.destroy(scout);
}

void Desktop::launch() {
    program = startCopy();
    seeStarted();
}

void Desktop::seeStarted() {
    see("the program at the notch", [this] { return isTrapLaid() || program->status(); });
    sight.shown();
}

xcb_window_t Desktop::showOther(const QRect& at) {
    const xcb_window_t window = other.show(at, 0x222222);
    see("the other program's window", [&] {
        other.map(window);  // a window manager that is still starting may let it wait for ever
        return sight.isViewable(window);
    });
    other.focus(window);
    see("the other program with the keyboard", [&] { return sight.focused() == window; });
    return window;
}

bool Desktop::xrandr(std::vector<std::string> words) {
    words.insert(words.begin(), {"xrandr", "-display", display});
    Process process(words);
    return exitStatus(process) == 0;
}

// ---- what a user does ----

void Desktop::hoverNotch() {
    hand.movePointer(notch);
    see("the expanded notch", [this] { return isExpanded(); });
}

void Desktop::leaveNotch() {
    moveAway();
    see("the notch folded", [this] { return !cap(); });
}

void Desktop::openRibbon() {
    hand.key("Control+Alt+t");
    see("the ribbon", [this] { return isRibbonSeen(); });
}

void Desktop::changeLengthTo(int minutes) {
    hand.key("d");
    see("the meeting's length", [&] { return config().value("meetingMinutes", 0) == minutes; });
}

std::string Desktop::copied(const std::string& key) {
    return copiedBy([&] { hand.key(key); });
}

Clock Desktop::copiedClock() {
    return readClock(copied());
}

void Desktop::takeClipboard() {
    if (clipboardWindow_ == XCB_WINDOW_NONE) clipboardWindow_ = other.show({0, 890, 5, 5}, 0, true);
    other.own("CLIPBOARD", clipboardWindow_);
}

bool Desktop::hasClipboard() {
    return other.ownerOf("CLIPBOARD") == clipboardWindow_;
}

std::string Desktop::paste(const std::string& type) {
    return outputOf("timeout 20 xclip -display " + display + " -selection clipboard -o -t " + type +
                    " 2>/dev/null");
}

// ---- what a user sees ----

std::optional<QRect> Desktop::cap() {
    for (const auto& [id, frame] : sight.windows()) {
        if (frame.top() == 0 && frame.height() == top) return frame;
    }
    return std::nullopt;
}

std::optional<QRect> Desktop::panel() {
    for (const auto& [id, frame] : sight.windows()) {
        if (frame.top() == top) return frame;
    }
    return std::nullopt;
}

std::optional<QRect> Desktop::menu() {
    for (const auto& [id, frame] : sight.windows()) {
        if (frame.top() != top && frame.height() != top) return frame;
    }
    return std::nullopt;
}

bool Desktop::isExpanded() {
    const auto frame = cap();
    return frame && Session::isExpanded(sight, *frame);
}

std::optional<QRect> Desktop::seenPanel() {
    const auto frame = panel();
    return frame && isStriped(sight, *frame) ? frame : std::nullopt;
}

bool Desktop::isTrapLaid() {
    return sight.isTrapAt(trap);
}

std::string Desktop::situation() {
    std::ostringstream text;
    for (const auto& [id, frame] : sight.windows())
        text << " [" << frame.x() << ' ' << frame.y() << ' ' << frame.width() << ' '
             << frame.height() << ']';
    if (isTrapLaid()) text << " and the wait at the notch";
    return text.str();
}

}  // namespace noonward::test
