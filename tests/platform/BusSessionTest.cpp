#include "platform/linux/BusSession.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QVariantMap>
#include <future>
#include <optional>

#include "support/PrivateBus.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

using Claim = Session::Claim;

/// Starts a second copy, as another process would: while this one may be busy.
std::future<Claim> claimElsewhere(const QString& address) {
    return std::async(std::launch::async, [address] {
        SessionBus bus(address);
        return BusSession(bus).claim([] {});
    });
}

bool isReady(const std::future<Claim>& claim) {
    return claim.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

TEST(BusSessionTest, TheSecondCopyBringsTheFirstForward) {
    const PrivateBus daemon;
    SessionBus bus(daemon.address());
    BusSession first(bus);
    int activated = 0;
    ASSERT_EQ(first.claim([&] { ++activated; }), Claim::first);
    for (int copies = 1; copies <= 2; ++copies) {
        auto other = claimElsewhere(daemon.address());
        EXPECT_TRUE(eventually([&] { return isReady(other); }));
        EXPECT_EQ(other.get(), Claim::another);
        EXPECT_EQ(activated, copies);
    }
}

TEST(BusSessionTest, TheSecondCopyGivesUpOnABusyFirst) {
    const PrivateBus daemon;
    SessionBus bus(daemon.address());
    BusSession first(bus);
    ASSERT_EQ(first.claim([] {}), Claim::first);
    EXPECT_EQ(claimElsewhere(daemon.address()).get(), Claim::another);  // nothing runs here
}

// It has the name still, and nothing any more that could come forward.
TEST(BusSessionTest, TheSecondCopyFollowsAFirstThatIsEnding) {
    const PrivateBus daemon;
    std::optional<SessionBus> ending(daemon.address());
    ASSERT_TRUE(ending->connection().registerService("com.ostrelmead.noonward"));
    SessionBus bus(daemon.address());
    BusSession second(bus);
    int activated = 0;
    EXPECT_EQ(second.claim([&] { ++activated; }), Claim::first);
    ending.reset();
    auto third = claimElsewhere(daemon.address());
    EXPECT_TRUE(eventually([&] { return isReady(third); }));
    EXPECT_EQ(third.get(), Claim::another);
    EXPECT_EQ(activated, 1);
}

TEST(BusSessionTest, GoesOnAloneWithoutABus) {
    PrivateBus daemon;
    SessionBus dying(daemon.address());
    daemon.stop();
    SessionBus unannounced;
    SessionBus absent(QStringLiteral("unix:path=/nowhere/at/all"));
    SessionBus garbled(QStringLiteral("no:address=;,"));
    for (SessionBus* bus : {&dying, &unannounced, &absent, &garbled}) {
        BusSession session(*bus);
        EXPECT_EQ(session.claim([] {}), Claim::alone);
        const Subscription heard = session.onSignal("toggle", [] {});
    }
}

TEST(BusSessionTest, AnswersAsAnApplication) {
    const PrivateBus daemon;
    SessionBus bus(daemon.address());
    BusSession session(bus);
    int activated = 0;
    ASSERT_EQ(session.claim([&] { ++activated; }), Claim::first);
    SessionBus other(daemon.address());
    struct Case {
        const char* member;
        QVariantList arguments;
        bool isAccepted;
        int activations;
    };
    const QVariantMap data{{"desktop-startup-id", 7}};
    const Case cases[] = {{"Activate", {data}, true, 1},
                          {"Activate", {}, true, 1},
                          {"Activate", {"strange", 1.5, QByteArray(9000, 'x')}, true, 1},
                          {"Open", {QStringList{"file:///a"}, data}, true, 0},
                          {"Open", {42}, true, 0},
                          {"ActivateAction", {"quit", QVariantList{1}, data}, true, 0},
                          {"ActivateAction", {}, true, 0},
                          {"Quit", {}, false, 0}};
    for (const Case& each : cases) {
        auto call = QDBusMessage::createMethodCall(
            "com.ostrelmead.noonward", "/com/ostrelmead/noonward", "org.freedesktop.Application",
            QString::fromLatin1(each.member));
        call.setArguments(each.arguments);
        activated = 0;
        const QDBusPendingCall answer = other.connection().asyncCall(call);
        EXPECT_TRUE(eventually([&] { return answer.isFinished(); }));
        EXPECT_EQ(!answer.isError(), each.isAccepted) << each.member;
        EXPECT_EQ(activated, each.activations) << each.member;
    }
}

TEST(BusSessionTest, HearsSignalsFromAnyoneWhileItListens) {
    const PrivateBus daemon;
    SessionBus bus(daemon.address());
    SessionBus other(daemon.address());
    BusSession session(bus);
    int toggles = 0;
    int settings = 0;
    auto toggle = session.onSignal("toggle", [&] { ++toggles; });
    const auto settingsHeard = session.onSignal("settings", [&] { ++settings; });
    // The bus answers in order: by then it knows what this connection listens for.
    bus.connection().call(QDBusMessage::createMethodCall(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));
    const auto announce = [&](const char* path, const char* interface, const char* member,
                              const QVariantList& arguments = {}) {
        auto signal = QDBusMessage::createSignal(path, interface, member);
        signal.setArguments(arguments);
        other.connection().send(signal);
    };
    announce("/", "com.ostrelmead.noonward", "toggle");
    announce("/any/where", "com.ostrelmead.noonward", "toggle", {"strange", 3});
    announce("/", "com.ostrelmead.other", "toggle");
    announce("/", "com.ostrelmead.noonward", "settings");
    EXPECT_TRUE(eventually([&] { return settings == 1; }));
    EXPECT_EQ(toggles, 2);

    toggle.reset();
    announce("/", "com.ostrelmead.noonward", "toggle");
    announce("/", "com.ostrelmead.noonward", "settings");
    EXPECT_TRUE(eventually([&] { return settings == 2; }));
    EXPECT_EQ(toggles, 2);
}

TEST(EndSignalsTest, TellsFromTheEventLoopAndOnlyOfWhatIsNotIgnored) {
    ::signal(SIGHUP, SIG_IGN);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        EndSignals signals;
        int ends = 0;
        const auto heard = signals.onEnd([&] { ++ends; });
        ::raise(signal);
        EXPECT_EQ(ends, 0);
        if (signal == SIGHUP) ::raise(SIGTERM);
        EXPECT_TRUE(eventually([&] { return ends > 0; }));
        EXPECT_EQ(ends, 1);
    }
    ::signal(SIGHUP, SIG_DFL);
}

}  // namespace
}  // namespace noonward::test
