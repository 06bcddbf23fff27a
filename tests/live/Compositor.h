#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "support/PrivateBus.h"
#include "support/Process.h"
#include "support/TempFolder.h"

namespace noonward::test {

/// A Wayland desktop of 1600 by 900 points without a screen, drawn in memory. It runs as an
/// ordinary user, even where the tests do not: compositors insist on that.
class Compositor {
 public:
    enum class Kind { sway, kwin, gnome };

    /// What NOONWARD_TEST_DESKTOP names; sway without.
    static Kind kind();
    /// Whether NOONWARD_TEST_XWAYLAND wants the program to be a client of the X server inside.
    static bool isXWaylandWanted();

    explicit Compositor(const PrivateBus& bus, int scale = 1);

    /// Whether it has started.
    explicit operator bool() const { return !announced_.empty(); }
    /// What programs that run on it find in their environment.
    const std::map<std::string, std::string>& announced() const { return announced_; }
    std::string display() const { return announced_.at("WAYLAND_DISPLAY"); }
    void signal(int number) const { process_->signal(number); }
    /// Waits until it covers no window any more of its own accord; there has to be a hand by then.
    void settle() const;
    /// What it says of itself, for when it does not do what it should.
    std::string log() const { return readText(folder_ / "log"); }

 private:
    std::vector<std::string> command(int scale);
    void awaitGnome();
    bool isFalse(const std::string& script) const;

    std::string bus_;
    TempFolder folder_;
    std::optional<Process> process_;
    std::map<std::string, std::string> announced_;
};

}  // namespace noonward::test
