// The running program under a headless sway, against the smallest program with a window on the same
// platform: how soon it has a surface, what it holds and does at rest, and how soon the panel is
// there after it was asked for. What it tells the compositor is read from libwayland's own log.

#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

#include "Budget.h"
#include "Median.h"
#include "RestingProcess.h"
#include "TwoPlaces.h"
#include "live/Compositor.h"
#include "support/Memory.h"
#include "support/Process.h"

namespace noonward::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using test::privateDirtyKiB;
using test::Process;

constexpr int starts = 11;
constexpr int openings = 11;

class Session {
 public:
    Session() {
        if (!compositor_) throw std::runtime_error("sway has not started");
    }

    std::map<std::string, std::string> environment(bool logs) const {
        auto display = compositor_.announced();
        display["QT_QPA_PLATFORM"] = "wayland";
        display["XDG_RUNTIME_DIR"] = home_.folder();
        if (logs) display["WAYLAND_DEBUG"] = "1";
        return home_.environment(display);
    }
    std::string bus() const { return home_.bus().address().toStdString(); }
    std::filesystem::path log() const { return home_.folder() / "log"; }

    /// Waits for something in the log, from a place in it on; the place after it.
    std::size_t await(const std::string& wanted, std::size_t from = 0) const {
        const auto end = Clock::now() + std::chrono::seconds(10);
        while (Clock::now() < end) {
            const auto found = test::readText(log()).find(wanted, from);
            if (found != std::string::npos) return found + wanted.size();
            std::this_thread::sleep_for(std::chrono::microseconds(300));
        }
        throw std::runtime_error("there is no " + wanted);
    }
    /// Waits for the panel's first picture: wider than the notch, and not as wide as the screen.
    void awaitPanel(std::size_t from) const {
        int width = 0;
        std::size_t sized = from;
        while (width < 1000 || width >= 1600) {
            sized = await("set_size(", sized);
            width = std::stoi(test::readText(log()).substr(sized, 5));
        }
        const std::string before = test::readText(log()).substr(0, sized);
        const auto made = before.rfind("get_layer_surface(");
        const auto name = before.find("wl_surface@", made);
        await(before.substr(name, before.find(',', name) - name) + ".attach(wl_buffer", sized);
    }

 private:
    TwoPlaces home_;
    test::Compositor compositor_{home_.bus()};
};

const std::string picture = ".attach(wl_buffer";

double millisecondsToSurface(const Session& session, const char* program) {
    std::filesystem::remove(session.log());
    const auto start = Clock::now();
    const Process process({program}, session.environment(true), session.log());
    session.await(picture);
    return Milliseconds(Clock::now() - start).count();
}

void toggle(const Session& session) {
    Process sender({"dbus-send", "--bus=" + session.bus(), "--type=signal", "/",
                    "com.ostrelmead.noonward.toggle"});
    while (!sender.status())
        std::this_thread::sleep_for(std::chrono::microseconds(100));
}

int run(int restSeconds) {
    const Session session;
    std::vector<double> ours;
    std::vector<double> hello;
    for (int i = 0; i < starts; ++i) {
        ours.push_back(millisecondsToSurface(session, NOONWARD_PROGRAM));
        hello.push_back(millisecondsToSurface(session, NOONWARD_HELLO));
    }
    bool kept = keepsBudget("start", median(ours) / median(hello), "x hello window", 1.5);
    {
        const Process program({NOONWARD_PROGRAM}, session.environment(false));
        const Process greeting({NOONWARD_HELLO}, session.environment(false));
        std::this_thread::sleep_for(std::chrono::seconds(3));
        kept &= keepsBudget("memory at rest",
                            privateDirtyKiB(program.id()) / privateDirtyKiB(greeting.id()),
                            "x hello window", 2.5);
        kept &= keepsRest(program.id(), restSeconds);
    }
    std::filesystem::remove(session.log());
    const Process program({NOONWARD_PROGRAM}, session.environment(true), session.log());
    session.await(picture);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    std::vector<double> frames;
    for (int i = 0; i < openings; ++i) {
        const std::size_t from = test::readText(session.log()).size();
        const auto start = Clock::now();
        toggle(session);
        session.awaitPanel(from);
        frames.push_back(Milliseconds(Clock::now() - start).count());
        std::this_thread::sleep_for(std::chrono::milliseconds(900));
        toggle(session);
        std::this_thread::sleep_for(std::chrono::milliseconds(900));
    }
    kept &= keepsBudget("signal to first frame", median(frames), "ms", 33);
    return kept ? 0 : 1;
}

}  // namespace
}  // namespace noonward::bench

// The one argument is how long to watch it at rest, in seconds: a minute without.
int main(int argc, char** argv) {
    return noonward::bench::run(argc > 1 ? std::max(5, std::atoi(argv[1])) : 60);
}
