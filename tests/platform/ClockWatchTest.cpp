#include "platform/linux/ClockWatch.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <array>

#include "support/PrivateBus.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

TEST(ClockWatchTest, TellsOfEachSettingOfTheClock) {
    SystemBus none(QStringLiteral("unix:path=/nowhere/at/all"));
    const int descriptor = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    ClockWatch watch(none, descriptor);
    int jumps = 0;
    const Subscription heard = watch.onChange([&] { ++jumps; });
    for (int set = 1; set <= 3; ++set) {
        ::eventfd_write(descriptor, 1);
        EXPECT_TRUE(eventually([&] { return jumps == set; }));
        QCoreApplication::processEvents();
        EXPECT_EQ(jumps, set);
    }
}

// What has come to its end is ready to be read for ever.
TEST(ClockWatchTest, GivesUpOnWhatCannotBeRead) {
    SystemBus none(QStringLiteral("unix:path=/nowhere/at/all"));
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ::close(ends[1]);
    ClockWatch broken(none, ends[0]);
    ClockWatch missing(none, -1);
    int jumps = 0;
    const Subscription heard = broken.onChange([&] { ++jumps; });
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(jumps, 0);
    const auto isQuiet = [] {
        return !QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents);
    };
    EXPECT_TRUE(eventually(isQuiet));
}

TEST(ClockWatchTest, TheKernelsTimerDoesNotRing) {
    const int descriptor = ClockWatch::timer();
    ASSERT_GE(descriptor, 0);
    pollfd ready{.fd = descriptor, .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&ready, 1, 0), 0);
    ::close(descriptor);
}

TEST(ClockWatchTest, TellsWhenTheComputerHasWokenUp) {
    const PrivateBus daemon;
    SystemBus bus(daemon.address());
    SystemBus service(daemon.address());
    SystemBus stranger(daemon.address());
    ASSERT_TRUE(service.connection().registerService("org.freedesktop.login1"));
    ClockWatch watch(bus, -1);
    int jumps = 0;
    const Subscription heard = watch.onChange([&] { ++jumps; });
    const auto announce = [](SystemBus& sender, const QVariantList& arguments) {
        auto signal = QDBusMessage::createSignal(
            "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForSleep");
        signal.setArguments(arguments);
        sender.connection().send(signal);
    };
    announce(stranger, {false});
    for (const QVariantList& each : {QVariantList{true}, {}, {"false"}, {0}, {false, false}})
        announce(service, each);
    announce(service, {false});
    EXPECT_TRUE(eventually([&] { return jumps == 1; }));
    announce(service, {true});
    announce(service, {false});
    EXPECT_TRUE(eventually([&] { return jumps == 2; }));
}

}  // namespace
}  // namespace noonward::test
