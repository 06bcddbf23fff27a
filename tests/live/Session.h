#pragma once

#include <gtest/gtest.h>

#include <QPoint>
#include <QRect>
#include <chrono>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "live/Sight.h"
#include "support/PrivateBus.h"
#include "support/Process.h"
#include "support/TempFolder.h"

namespace noonward::test {

/// The program as it is started in a desktop's session, with a message bus of its own and nobody
/// else's settings. A step that does not come about ends the test.
class Session : public testing::Test {
 protected:
    Session() { configure({}); }
    /// The program ends when it is asked to, and has never said anything.
    void TearDown() override;

    // ---- around the program ----

    /// What the programs that it starts find in their environment beside the usual.
    std::map<std::string, std::string> announced;
    std::map<std::string, std::string> environment() const;
    /// Starts a copy of it, and waits for nothing.
    std::unique_ptr<Process> startCopy();
    /// Its exit status; the number of the signal that killed it, negative.
    int exitStatus();
    int exitStatus(Process& process);
    /// Sends something on the bus, in the words of dbus-send.
    void sendOnBus(std::vector<std::string> words);
    void sendSignal(const std::string& member);

    std::filesystem::path configFile() const { return folder / "data/Noonward/places.json"; }
    /// What is saved. It is written in place: a look that falls into that is taken again.
    nlohmann::json config() const;
    /// Writes the file before the program reads it.
    void configure(const nlohmann::json& changes);

    // ---- what a user sees ----

    /// Whether the notch is open in that frame, with its clocks.
    static bool isExpanded(Sight& sight, const QRect& cap);
    /// Whether a panel can be seen in that frame: its stripe in five colours, in place.
    static bool isStriped(Sight& sight, const QRect& panel);

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

    /// What there is to see, for when something does not come about.
    virtual std::string situation() = 0;

    static constexpr std::uint32_t wallpaper = 0x336699;
    static constexpr QPoint notch{800, 12};
    static constexpr QPoint nowhere{1500, 850};
    static constexpr int left = 202;  // of the panel
    static constexpr int top = 24;
    static constexpr int settingsHeight = 546;

    TempFolder folder;
    PrivateBus bus;
    std::string programFile = NOONWARD_PROGRAM;
    std::unique_ptr<Process> program;

 private:
    [[noreturn]] void miss(const std::string& what);
};

/// All that a command writes.
std::string outputOf(const std::string& command);

}  // namespace noonward::test
