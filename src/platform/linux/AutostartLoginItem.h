#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/LoginItem.h"
#include "platform/linux/DesktopEntry.h"

namespace noonward {

/// The program's desktop entry, noonward.desktop, in the folders whose entries a desktop starts at
/// login (Desktop Application Autostart Specification 0.5). A user's entry is changed, not
/// replaced: what it holds beside what the switch is about stays.
class AutostartLoginItem final : public LoginItem {
 public:
    struct Setting {
        std::filesystem::path user;                 ///< the user's folder; empty: there is none
        std::vector<std::filesystem::path> system;  ///< the system's, the most important first
        std::vector<std::string> desktops;          ///< names of the desktop that runs
        std::filesystem::path program;              ///< what is to be started
    };
    /// By XDG_CONFIG_HOME, XDG_CONFIG_DIRS, XDG_CURRENT_DESKTOP and HOME, and this process's own
    /// program.
    static Setting ofSession();

    explicit AutostartLoginItem(Setting setting) : setting_(std::move(setting)) {}

    [[nodiscard]] bool enabled() const override;
    void set(bool on) override;

 private:
    bool starts(const DesktopEntry& entry) const;
    bool isShown(const DesktopEntry& entry) const;
    bool runsProgram(const DesktopEntry& entry) const;
    void switchOn(DesktopEntry& entry) const;
    void show(DesktopEntry& entry) const;

    Setting setting_;
};

/// Whether a program is where an installation puts it: in a folder "bin", with its desktop entry in
/// "share/applications" beside that. One that was just built is not.
bool isInstalled(const std::filesystem::path& program);

}  // namespace noonward
