#include "platform/linux/PortalHotKeys.h"

#include <gtest/gtest.h>

#include <QDBusObjectPath>
#include <algorithm>
#include <functional>

#include "fakes/FakeHotKeys.h"
#include "platform/ShortcutsPortal.h"
#include "platform/linux/PortalIdentity.h"
#include "support/PrivateBus.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

using namespace shortcuts;

constexpr auto controlOption = HotKeys::control | HotKeys::option;

QVariantMap bound(const QString& id) {
    return {{"shortcuts", QVariant::fromValue(Entries{{"other", {}}, {id, {{"x", 1}}}})}};
}
const QVariantMap created{{"session_handle", session}};

class PortalHotKeysTest : public testing::Test {
 protected:
    HotKeys::Outcome add() {
        return keys.registerKey(17, controlOption, 1, [this](std::uint32_t id) {
            EXPECT_EQ(id, 1U);
            ++presses;
        });
    }
    void bind() {
        portal.await("CreateSession");
        awaitBinding();
        portal.grant(bound("key1"));
    }
    /// A session that has no shortcut yet.
    void awaitBinding() {
        portal.grant(created);
        portal.await("ListShortcuts");
        portal.grant(bound("other"));
        portal.await("BindShortcuts");
    }
    bool isTakenOtherwise() {
        const int before = presses;
        const bool taken = otherwise.press(17, controlOption);
        presses = before;
        return taken;
    }
    bool activates() {
        const int before = presses;
        portal.activate(session, "key1");
        return eventually([&] { return presses > before; });
    }

    PrivateBus daemon;
    SessionBus bus{daemon.address()};
    Portal portal{daemon.address()};
    FakeHotKeys otherwise;
    PortalHotKeys keys{bus, &otherwise};
    int presses = 0;
};

TEST_F(PortalHotKeysTest, ComeAfterThePortalKnowsWhoAsks) {
    const PortalIdentity identity(bus);
    for (int portals = 0; portals < 2; ++portals) {
        portal.await("Register");
        EXPECT_EQ(portal.question.interface(), "org.freedesktop.host.portal.Registry");
        EXPECT_EQ(portal.question.arguments()[0], "com.ostrelmead.noonward");
        portal.stop();
        portal.start();
    }
}

TEST_F(PortalHotKeysTest, AsksForTheKeyAndHearsItsPresses) {
    EXPECT_EQ(add(), HotKeys::Outcome::registered);
    const QVariantMap options = portal.await("CreateSession");
    EXPECT_FALSE(options["session_handle_token"].toString().isEmpty());
    // The response may be there before the answer.
    portal.respond(portal.handle(), {0U, created});
    portal.answer(QVariant::fromValue(QDBusObjectPath(portal.handle())));
    portal.await("ListShortcuts");
    portal.refuse();
    portal.await("BindShortcuts");
    const QVariantList arguments = portal.question.arguments();
    EXPECT_EQ(qvariant_cast<QDBusObjectPath>(arguments[0]).path(), session);
    const auto wished = qdbus_cast<Entries>(arguments[1]);
    ASSERT_EQ(wished.size(), 1);
    EXPECT_EQ(wished[0].values["preferred_trigger"], "CTRL+ALT+t");
    EXPECT_FALSE(wished[0].values["description"].toString().isEmpty());
    portal.grant(bound(wished[0].id));

    SessionBus stranger(daemon.address());
    auto forged = QDBusMessage::createSignal(folder, shortcutsInterface, "Activated");
    forged << QVariant::fromValue(QDBusObjectPath(session)) << "key1" << qulonglong(7)
           << QVariantMap();
    stranger.connection().send(forged);
    portal.activate(session + "2", "key1");
    portal.activate(session, "other");
    portal.send(folder, shortcutsInterface, "Activated", {"key1", session});
    portal.send(folder, shortcutsInterface, "Activated", {});
    EXPECT_TRUE(activates());
    EXPECT_TRUE(activates());
    EXPECT_EQ(presses, 2);
    EXPECT_FALSE(isTakenOtherwise());
}

TEST_F(PortalHotKeysTest, FollowsAHandleThatThePortalChoseItself) {
    add();
    const QString first = folder + "/request/own/first";
    portal.await("CreateSession");
    portal.answer(QVariant::fromValue(QDBusObjectPath(first)));
    // Nobody tells when the answer has been read.
    ASSERT_TRUE(eventually([&] {
        portal.respond(first, {0U, created});
        return !portal.asked.empty();
    }));
    const QString second = folder + "/request/own/second";
    portal.await("ListShortcuts");
    portal.answer(QVariant::fromValue(QDBusObjectPath(second)));
    EXPECT_TRUE(eventually([&] {
        portal.respond(second, {0U, bound("key1")});
        portal.activate(session, "key1");
        return presses > 0;
    }));
}

TEST_F(PortalHotKeysTest, WithoutThePortalsConsentTheKeyIsTakenOtherwise) {
    const auto path = [](const QString& text) {
        return QVariant::fromValue(QDBusObjectPath(text));
    };
    const auto create = [&](const QVariantMap& results) {
        return [this, results] { portal.grant(results); };
    };
    const auto bind = [&](const std::function<void()>& step) {
        return [this, step] {
            awaitBinding();
            step();
        };
    };
    const auto respond = [&](const QVariantList& arguments) {
        return [this, arguments] { portal.respond(portal.handle(), arguments); };
    };
    const std::function<void()> refusals[] = {
        [&] { portal.refuse(); },
        [&] { portal.answer(5); },
        [&] { portal.answer(path("/somewhere/else")); },
        respond({1U, QVariantMap()}),
        respond({2U, created}),
        respond({}),
        respond({0U, "no map"}),
        create({}),
        create({{"session_handle", 5}}),
        create({{"session_handle", "no path"}}),
        create({{"session_handle", "/org/freedesktop/portal/desktop/session/a b"}}),
        create({{"session_handle", "/other/session"}}),
        bind([&] { portal.refuse(); }),
        bind(respond({1U, bound("key1")})),
        bind([&] { portal.grant({}); }),
        bind([&] { portal.grant(bound("key2")); }),
        bind([&] {
            portal.grant({{"shortcuts", "key1"}});
        }),
        bind([&] {
            portal.grant({{"shortcuts", QStringList{"key1"}}});
        }),
        bind([&] {
            portal.send(session, "org.freedesktop.portal.Session", "Closed", {QVariantMap()});
        }),
        bind([&] { portal.stop(); }),
    };
    for (const auto& refusal : refusals) {
        FakeHotKeys own;
        PortalHotKeys refused(bus, &own);
        int told = 0;
        portal.start();
        portal.asked.clear();
        refused.registerKey(17, controlOption, 1, [&](std::uint32_t) { ++told; });
        portal.await("CreateSession");
        EXPECT_FALSE(own.press(17, controlOption));
        refusal();
        EXPECT_TRUE(eventually([&] { return own.press(17, controlOption); }))
            << &refusal - refusals;
        EXPECT_EQ(told, 1);
    }
}

TEST_F(PortalHotKeysTest, OnePressIsOneWhoeverComesAndGoes) {
    add();
    bind();
    EXPECT_TRUE(activates());
    portal.stop();
    EXPECT_TRUE(eventually([&] { return isTakenOtherwise(); }));
    otherwise.press(17, controlOption);
    EXPECT_EQ(presses, 2);

    portal.start();
    bind();
    EXPECT_TRUE(activates());
    presses = 0;
    otherwise.press(17, controlOption);
    EXPECT_EQ(presses, 0) << "the compositor tells of it";
    portal.send(session, "org.freedesktop.portal.Session", "Closed", {QVariantMap()});
    EXPECT_TRUE(eventually([&] {
        otherwise.press(17, controlOption);
        return presses > 0;
    }));
}

TEST_F(PortalHotKeysTest, APortalThatAlwaysEndsIsNotAskedForEver) {
    add();
    int questions = 0;
    for (int round = 0; round < 30; ++round) {
        portal.asked.clear();
        portal.stop();
        portal.start();
        // The bus tells of owners in order: by the answer both changes have been heard.
        bus.connection().call(QDBusMessage::createMethodCall(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));
        QCoreApplication::processEvents();
        bus.connection().call(
            QDBusMessage::createMethodCall(service, folder, "org.freedesktop.DBus.Peer", "Ping"),
            QDBus::BlockWithGui);
        questions += static_cast<int>(std::count_if(
            portal.asked.begin(), portal.asked.end(),
            [](const QDBusMessage& each) { return each.member() == "CreateSession"; }));
    }
    EXPECT_GE(questions, 2);
    EXPECT_LE(questions, 10);
}

TEST(PortalHotKeysWithoutBusTest, TheKeyIsTakenOtherwiseAtOnce) {
    SessionBus none;
    for (const auto outcome : {HotKeys::Outcome::registered, HotKeys::Outcome::taken}) {
        FakeHotKeys otherwise;
        otherwise.outcome = outcome;
        PortalHotKeys keys(none, &otherwise);
        int presses = 0;
        const auto pressed = [&](std::uint32_t) { ++presses; };
        EXPECT_EQ(keys.registerKey(17, controlOption, 1, pressed), outcome);
        EXPECT_EQ(otherwise.press(17, controlOption), outcome == HotKeys::Outcome::registered);
        EXPECT_EQ(presses, outcome == HotKeys::Outcome::registered);
        EXPECT_EQ(keys.registerKey(10, controlOption, 2, pressed), HotKeys::Outcome::unavailable);
    }
}

}  // namespace
}  // namespace noonward::test
