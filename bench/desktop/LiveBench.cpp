// The running program on a private X server, against the smallest program with a window: how soon
// it is there, what it holds and does at rest, and how soon the panel is seen after the hot key.

#include <algorithm>
#include <chrono>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

#include "Budget.h"
#include "LiveServer.h"
#include "Median.h"
#include "RestingProcess.h"
#include "TwoPlaces.h"
#include "support/Memory.h"
#include "support/Process.h"

namespace noonward::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using test::privateDirtyKiB;
using test::Process;

constexpr int starts = 15;
constexpr int openings = 15;

class Desktop {
 public:
    Desktop() { server.movePointer(800, 600); }

    std::map<std::string, std::string> environment() const {
        return home_.environment({{"DISPLAY", server.display()}, {"QT_QPA_PLATFORM", "xcb"}});
    }

    LiveServer server;

 private:
    TwoPlaces home_;
};

double millisecondsToWindow(Desktop& desktop, const char* program) {
    desktop.server.forgetEvents();
    const auto start = Clock::now();
    const Process process({program}, desktop.environment());
    desktop.server.waitForMapping();
    return Milliseconds(Clock::now() - start).count();
}

void pressHotKey(LiveServer& server) {
    constexpr std::uint8_t control = 37, alt = 64, letterT = 28;
    server.strike({control, alt, letterT});
}

// A point of the panel's bottom half that nothing covers, in the middle of the screen.
constexpr int probeX = 800;
constexpr int probeY = 60;

double millisecondsToPanel(LiveServer& server) {
    const auto before = server.pixel(probeX, probeY);
    const auto start = Clock::now();
    pressHotKey(server);
    while (server.pixel(probeX, probeY) == before) {
        if (Clock::now() - start > std::chrono::seconds(10)) throw std::runtime_error("no panel");
    }
    const double took = Milliseconds(Clock::now() - start).count();
    std::this_thread::sleep_for(std::chrono::milliseconds(900));
    pressHotKey(server);
    const auto closing = Clock::now();
    while (server.pixel(probeX, probeY) != before) {
        if (Clock::now() - closing > std::chrono::seconds(10)) throw std::runtime_error("a panel");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(900));
    return took;
}

int run(int restSeconds) {
    Desktop desktop;
    std::vector<double> ours;
    std::vector<double> hello;
    for (int i = 0; i < starts; ++i) {
        ours.push_back(millisecondsToWindow(desktop, NOONWARD_PROGRAM));
        hello.push_back(millisecondsToWindow(desktop, NOONWARD_HELLO));
    }
    bool kept = keepsBudget("start", median(ours) / median(hello), "x hello window", 1.5);

    const Process program({NOONWARD_PROGRAM}, desktop.environment());
    desktop.server.forgetEvents();
    const Process greeting({NOONWARD_HELLO}, desktop.environment());
    desktop.server.waitForMapping();
    std::this_thread::sleep_for(std::chrono::seconds(3));
    kept &= keepsBudget("memory at rest",
                        privateDirtyKiB(program.id()) / privateDirtyKiB(greeting.id()),
                        "x hello window", 2.5);

    kept &= keepsRest(program.id(), restSeconds);

    std::vector<double> frames;
    for (int i = 0; i < openings; ++i)
        frames.push_back(millisecondsToPanel(desktop.server));
    kept &= keepsBudget("hot key to first frame", median(frames), "ms", 33);
    return kept ? 0 : 1;
}

}  // namespace
}  // namespace noonward::bench

// The one argument is how long to watch it at rest, in seconds: a minute without.
int main(int argc, char** argv) {
    return noonward::bench::run(argc > 1 ? std::max(5, std::atoi(argv[1])) : 60);
}
