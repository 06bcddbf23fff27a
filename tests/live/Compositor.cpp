#include "live/Compositor.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <thread>

#include "live/Session.h"

namespace noonward::test {
namespace {

namespace fs = std::filesystem;

constexpr int width = 1600;  // points
constexpr int height = 900;
constexpr uid_t nobody = 65534;

bool is(const char* variable, std::string_view value) {
    const char* set = std::getenv(variable);
    return set && set == value;
}

template <typename Condition>
bool soon(Condition condition) {
    for (int tries = 0; tries < 1500; ++tries) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

}  // namespace

Compositor::Kind Compositor::kind() {
    if (is("NOONWARD_TEST_DESKTOP", "kwin")) return Kind::kwin;
    return is("NOONWARD_TEST_DESKTOP", "gnome") ? Kind::gnome : Kind::sway;
}

bool Compositor::isXWaylandWanted() {
    return is("NOONWARD_TEST_XWAYLAND", "1");
}

Compositor::Compositor(const PrivateBus& bus, int scale) : bus_(bus.address().toStdString()) {
    fs::permissions(folder_.path(), fs::perms::others_exec, fs::perm_options::add);
    for (const char* each : {"run", "home"}) {
        fs::create_directory(folder_ / each);
        fs::permissions(folder_ / each, fs::perms(0700));
        if (::geteuid() == 0 && ::chown((folder_ / each).c_str(), nobody, nobody) != 0) return;
    }
    const std::string run = folder_ / "run";
    writeText(folder_ / "tell", "#!/bin/sh\necho \"$WAYLAND_DISPLAY $DISPLAY $XAUTHORITY\" >" +
                                    run + "/new && mv " + run + "/new " + run + "/told\n");
    fs::permissions(folder_ / "tell", fs::perms(0755));

    auto words = command(scale);
    if (::geteuid() == 0)
        words.insert(words.begin(), {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups",
                                     "--pdeathsig=TERM"});
    process_.emplace(
        words,
        std::map<std::string, std::string>{{"DBUS_SESSION_BUS_ADDRESS", bus_},
                                           {"DBUS_SYSTEM_BUS_ADDRESS", bus_},
                                           {"GNOME_SHELL_SESSION_MODE", "user"},
                                           {"GSETTINGS_BACKEND", "memory"},
                                           {"HOME", folder_ / "home"},
                                           {"KWIN_COMPOSE", "O2"},
                                           {"KWIN_SCREENSHOT_NO_PERMISSION_CHECKS", "1"},
                                           {"KWIN_WAYLAND_NO_PERMISSION_CHECKS", "1"},
                                           {"LANG", "C.UTF-8"},
                                           {"LIBGL_ALWAYS_SOFTWARE", "1"},
                                           {"MUTTER_DEBUG_DUMMY_MODE_SPECS", "1600x900"},
                                           {"NO_AT_BRIDGE", "1"},
                                           {"PATH", "/usr/bin:/bin"},
                                           {"SHELL", "/bin/sh"},
                                           {"WLR_BACKENDS", "headless"},
                                           {"WLR_LIBINPUT_NO_DEVICES", "1"},
                                           {"WLR_RENDERER", "pixman"},
                                           {"XDG_RUNTIME_DIR", run}},
        folder_ / "log");
    std::string socket, display, authority;
    if (kind() == Kind::gnome) {
        awaitGnome();
        return;
    }
    if (!soon([&] { return fs::exists(folder_ / "run/told") || process_->status(); })) return;
    std::istringstream(readText(folder_ / "run/told")) >> socket >> display >> authority;
    if (socket.empty()) return;
    announced_ = {{"WAYLAND_DISPLAY", run + "/" + socket},
                  {"XDG_CURRENT_DESKTOP", kind() == Kind::kwin ? "KDE" : "sway"}};
    if (!display.empty()) announced_["DISPLAY"] = display;
    if (!authority.empty()) announced_["XAUTHORITY"] = authority;
}

std::vector<std::string> Compositor::command(int scale) {
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    if (kind() == Kind::gnome)
        return {"gnome-shell", "--headless",    "--virtual-monitor", size,
                "--wayland",   "--unsafe-mode", "--wayland-display", "wayland-gnome"};
    if (kind() == Kind::kwin) {
        writeText(folder_ / "home/.config/kwinrc", "[Compositing]\nOpenGLIsUnsafe=true\n");
        // A copy: the installed file has a capability that a container may not grant.
        fs::copy_file("/usr/bin/kwin_wayland", folder_ / "kwin_wayland");
        return {folder_ / "kwin_wayland",
                "--virtual",
                "--width",
                std::to_string(width),
                "--height",
                std::to_string(height),
                "--scale",
                std::to_string(scale),
                "--xwayland",
                "--no-lockscreen",
                "--socket",
                "wayland-kwin",
                folder_ / "tell"};
    }
    std::ostringstream lines;
    lines << "output HEADLESS-1 resolution " << width * scale << 'x' << height * scale << " scale "
          << scale << " bg #336699 solid_color\n"
          << "default_border none\nfocus_follows_mouse no\n"
          << "xwayland " << (isXWaylandWanted() ? "enable" : "disable") << "\n"
          << "exec " << (folder_ / "tell").string() << '\n';
    writeText(folder_ / "sway.conf", lines.str());
    return {"sway", "-c", folder_ / "sway.conf"};
}

bool Compositor::isFalse(const std::string& script) const {
    return outputOf("dbus-send --bus=" + bus_ +
                    " --print-reply --dest=org.gnome.Shell /org/gnome/Shell org.gnome.Shell.Eval "
                    "string:'" +
                    script + "' 2>/dev/null")
               .find("\"false\"") != std::string::npos;
}

// It starts with its overview over all windows, which comes again while it starts.
void Compositor::settle() const {
    if (kind() != Kind::gnome) return;
    int calm = 0;
    soon([&] {
        const bool isAway = isFalse("Main.overview.visible || Main.overview.animationInProgress");
        if (!isAway) isFalse("Main.overview.hide()");
        calm = isAway ? calm + 1 : 0;
        return calm == 50;
    });
}

void Compositor::awaitGnome() {
    if (!soon([&] { return isFalse("Main.layoutManager._startingUp") || process_->status(); }))
        return;
    const std::string run = folder_ / "run";
    announced_ = {{"WAYLAND_DISPLAY", run + "/wayland-gnome"}, {"XDG_CURRENT_DESKTOP", "GNOME"}};
    std::istringstream lines(log());
    for (std::string line; std::getline(lines, line);) {
        const auto at = line.find("public X11 display ");
        if (at == std::string::npos) continue;
        std::istringstream(line.substr(at + 19)) >> announced_["DISPLAY"];
        announced_["DISPLAY"].erase(announced_["DISPLAY"].find_last_not_of(", ") + 1);
    }
    for (const auto& name : namesIn(run))
        if (name.starts_with(".mutter-Xwaylandauth")) announced_["XAUTHORITY"] = run + "/" + name;
}

}  // namespace noonward::test
