// Opens and closes the panel ten thousand times on a private X server, without waiting for the
// clock, and tells how much memory that leaves behind.

#include <QApplication>
#include <deque>
#include <utility>

#include "Budget.h"
#include "LiveServer.h"
#include "app/AppDelegate.h"
#include "app/Planner.h"
#include "platform/LinuxDesktop.h"
#include "platform/MainQueue.h"
#include "reference/GazetteerGeocoder.h"
#include "support/Memory.h"
#include "support/TempFolder.h"
#include "views/theme/Fonts.h"

namespace noonward::bench {
namespace {

constexpr double budgetKiB = 512;

// What falls due later falls due at once, in order.
class ImpatientQueue final : public MainQueue {
 public:
    void post(std::function<void()> work) override { works_.push_back(std::move(work)); }
    void after(std::chrono::milliseconds, std::function<void()> work) override {
        works_.push_back(std::move(work));
    }
    void run() {
        while (!works_.empty()) {
            const auto work = std::move(works_.front());
            works_.pop_front();
            work();
            QCoreApplication::processEvents();
            // Outside of an event loop nobody else does.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

 private:
    std::deque<std::function<void()>> works_;
};

class NoZoneChanges final : public ZoneChanges {
 public:
    Subscription subscribe(std::function<void()>) override { return {}; }
};

void openAndClose(AppDelegate& delegate, ImpatientQueue& queue) {
    for (int i = 0; i < 2; ++i) {
        delegate.togglePanel();
        queue.run();
    }
}

int run(int argc, char** argv, int openings) {
    const QApplication application(argc, argv);
    registerFonts();
    const auto desktop = LinuxDesktop::connect();
    if (!desktop) return 1;
    const Desktop real = desktop->services();
    ImpatientQueue queue;
    NoZoneChanges zoneChanges;
    Planner planner(real.timer, zoneChanges, nullptr, ConfigFile::Access::readOnly);
    GazetteerGeocoder geocoder([&queue](auto work) { queue.post(std::move(work)); });
    AppDelegate delegate(
        planner, geocoder,
        Desktop{queue, real.timer, real.screens, real.pointer, real.windows, real.presses,
                real.keyboard, real.hotKeys, real.session, real.appearance, real.pasteboard,
                real.feedback, real.loginItem, real.zoneChanges, real.clockChanges});
    queue.run();
    // Caches fill first.
    for (int i = 0; i < openings / 10; ++i)
        openAndClose(delegate, queue);
    const double before = test::privateDirtyKiB(getpid());
    for (int i = 0; i < openings; ++i)
        openAndClose(delegate, queue);
    const double grown = test::privateDirtyKiB(getpid()) - before;
    const std::string what = std::to_string(openings) + " openings and closings";
    return noonward::bench::keepsBudget(what, grown, "KiB grown", budgetKiB) ? 0 : 1;
}

}  // namespace
}  // namespace noonward::bench

// The one argument is how many times.
int main(int argc, char** argv) {
    noonward::bench::LiveServer server;
    server.movePointer(800, 600);
    const noonward::test::TempFolder data;
    qputenv("DISPLAY", QByteArray::fromStdString(server.display()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString(data.path()));
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    return noonward::bench::run(argc, argv, argc > 1 ? std::atoi(argv[1]) : 10'000);
}
