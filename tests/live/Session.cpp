#include "live/Session.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <stdexcept>

namespace noonward::test {
namespace {

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

}  // namespace

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

void Session::TearDown() {
    if (!program) return;
    if (!program->status()) {
        program->signal(SIGTERM);
        EXPECT_EQ(exitStatus(), 0);
    }
    EXPECT_EQ(readText(folder / "output"), "");
}

// ---- around the program ----

std::map<std::string, std::string> Session::environment() const {
    std::map<std::string, std::string> result = announced;
    result.merge(std::map<std::string, std::string>{
        {"DBUS_SESSION_BUS_ADDRESS", bus.address().toStdString()},
        {"DBUS_SYSTEM_BUS_ADDRESS", bus.address().toStdString()},
        {"HOME", folder.path()},
        {"LANG", "C.UTF-8"},
        {"PATH", "/usr/bin:/bin"},
        {"TZ", home().zone},
        {"XDG_DATA_HOME", folder / "data"}});
    return result;
}

std::unique_ptr<Process> Session::startCopy() {
    return std::make_unique<Process>(std::vector<std::string>{programFile}, environment(),
                                     folder / "output");
}

int Session::exitStatus() {
    return exitStatus(*program);
}

int Session::exitStatus(Process& process) {
    see("the program's end", [&] { return process.status(); });
    const int status = *process.status();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void Session::sendOnBus(std::vector<std::string> words) {
    words.insert(words.begin(), {"dbus-send", "--bus=" + bus.address().toStdString()});
    Process sender(words);
    EXPECT_EQ(exitStatus(sender), 0);
}

void Session::sendSignal(const std::string& member) {
    sendOnBus({"--type=signal", "/from/anywhere", "com.ostrelmead.noonward." + member});
}

nlohmann::json Session::config() const {
    nlohmann::json whole;
    until([&] {
        whole = nlohmann::json::parse(readText(configFile()), nullptr, false);
        return whole.is_object();
    });
    return whole;
}

void Session::configure(const nlohmann::json& changes) {
    auto whole = usualConfig();
    whole.update(changes.is_null() ? nlohmann::json::object() : changes);
    writeText(configFile(), whole.dump());
}

// ---- what a user sees ----

bool Session::isExpanded(Sight& sight, const QRect& cap) {
    const int middle = cap.center().y();
    const QSize ear(70, 16);
    return sight.colour({cap.left() + 14, middle}) == 0 &&
           sight.colour({cap.right() - 14, middle}) == 0 &&
           sight.isBright({{cap.left() + 21, 4}, ear}, 200) &&
           sight.isBright({{cap.right() - 21 - ear.width(), 4}, ear}, 200);
}

bool Session::isStriped(Sight& sight, const QRect& panel) {
    int i = 0;
    for (const std::uint32_t colour : {0x004165U, 0x0094b3U, 0xaa272fU, 0xff6d22U, 0x636467U}) {
        const int x = panel.left() + panel.width() * (2 * i++ + 1) / 10;
        if (sight.colour({x, panel.top() + 3}) != colour) return false;
    }
    return true;
}

void Session::miss(const std::string& what) {
    throw std::runtime_error(what + " does not come about; on the screen:" + situation() +
                             "; saved: " + readText(configFile()));
}

}  // namespace noonward::test
