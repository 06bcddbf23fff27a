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

// A place without clock changes, and far from midnight: what is shown does not change its day
// while a test looks on.
struct Home {
    const char* label;
    const char* zone;
};
Home home() {
    constexpr Home greenwich{"Reykjavik", "Atlantic/Reykjavik"};
    constexpr Home ahead{"Dubai", "Asia/Dubai"};
    const std::time_t hour = std::time(nullptr) / 3600 % 24;
    return hour == 23 || hour == 0 ? ahead : greenwich;
}

nlohmann::json usualConfig() {
    return {{"welcomed", true},
            {"clickSound", false},
            {"appearance", "dark"},
            {"favourites", {home().label, "New York"}},
            {"homeZones", {home().zone}},
            {"places",
             {{{"label", home().label},
               {"short", "HOM"},
               {"zone", home().zone},
               {"home", true},
               {"holidays", false}},
              {{"label", "New York"},
               {"short", "NYC"},
               {"zone", "America/New_York"},
               {"holidays", false}}}}};
}

std::string outputOf(const std::string& command) {
    std::string result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 65536> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        result.append(buffer.data(), got);
    ::pclose(pipe);
    return result;
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
    const std::uint32_t pixel = wallpaper;
    xcb_change_window_attributes(other.connection(), other.root(), XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(other.connection(), false, other.root(), 0, 0, 0, 0);
    other.sync();
    moveAway();
    configure({});
}

void Desktop::TearDown() {
    if (!program) return;
    if (!program->status()) {
        program->signal(SIGTERM);
        EXPECT_EQ(exitStatus(), 0);
    }
    EXPECT_EQ(readText(folder / "output"), "");
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

std::map<std::string, std::string> Desktop::environment() const {
    std::map<std::string, std::string> result = announced;
    result.merge(std::map<std::string, std::string>{
        {"DISPLAY", display},
        {"DBUS_SESSION_BUS_ADDRESS", bus.address().toStdString()},
        {"DBUS_SYSTEM_BUS_ADDRESS", bus.address().toStdString()},
        {"HOME", folder.path()},
        {"LANG", "C.UTF-8"},
        {"PATH", "/usr/bin:/bin"},
        {"TZ", home().zone},
        {"XDG_DATA_HOME", folder / "data"}});
    return result;
}

void Desktop::launch() {
    program = startCopy();
    seeStarted();
}

void Desktop::seeStarted() {
    see("the program at the notch", [this] { return isTrapLaid() || program->status(); });
    sight.shown();
}

std::unique_ptr<Process> Desktop::startCopy() {
    return std::make_unique<Process>(std::vector<std::string>{programFile}, environment(),
                                     folder / "output");
}

int Desktop::exitStatus() {
    return exitStatus(*program);
}

int Desktop::exitStatus(Process& process) {
    see("the program's end", [&] { return process.status(); });
    const int status = *process.status();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
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

void Desktop::sendOnBus(std::vector<std::string> words) {
    words.insert(words.begin(), {"dbus-send", "--bus=" + bus.address().toStdString()});
    Process sender(words);
    EXPECT_EQ(exitStatus(sender), 0);
}

void Desktop::sendSignal(const std::string& member) {
    sendOnBus({"--type=signal", "/from/anywhere", "com.ostrelmead.noonward." + member});
}

bool Desktop::xrandr(std::vector<std::string> words) {
    words.insert(words.begin(), {"xrandr", "-display", display});
    Process process(words);
    return exitStatus(process) == 0;
}

nlohmann::json Desktop::config() const {
    nlohmann::json whole;
    until([&] {
        whole = nlohmann::json::parse(readText(configFile()), nullptr, false);
        return whole.is_object();
    });
    return whole;
}

void Desktop::configure(const nlohmann::json& changes) {
    auto whole = usualConfig();
    whole.update(changes.is_null() ? nlohmann::json::object() : changes);
    writeText(configFile(), whole.dump());
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
    if (!frame) return false;
    const int middle = frame->center().y();
    const QSize ear(70, 16);
    return sight.colour({frame->left() + 14, middle}) == 0 &&
           sight.colour({frame->right() - 14, middle}) == 0 &&
           sight.isBright({{frame->left() + 21, 4}, ear}, 200) &&
           sight.isBright({{frame->right() - 21 - ear.width(), 4}, ear}, 200);
}

// Its stripe in five colours, in place.
std::optional<QRect> Desktop::seenPanel() {
    const auto frame = panel();
    if (!frame) return frame;
    int i = 0;
    for (const std::uint32_t colour : {0x004165U, 0x0094b3U, 0xaa272fU, 0xff6d22U, 0x636467U}) {
        const int x = frame->left() + frame->width() * (2 * i++ + 1) / 10;
        if (sight.colour({x, frame->top() + 3}) != colour) return std::nullopt;
    }
    return frame;
}

bool Desktop::isTrapLaid() {
    return sight.isTrapAt(trap);
}

void Desktop::miss(const std::string& what) {
    std::ostringstream text;
    text << what << " does not come about; on the screen:";
    for (const auto& [id, frame] : sight.windows())
        text << " [" << frame.x() << ' ' << frame.y() << ' ' << frame.width() << ' '
             << frame.height() << ']';
    if (isTrapLaid()) text << " and the wait at the notch";
    text << "; saved: " << readText(configFile());
    throw std::runtime_error(text.str());
}

}  // namespace noonward::test
