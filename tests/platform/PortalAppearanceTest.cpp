#include "platform/linux/PortalAppearance.h"

#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include "support/PrivateBus.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

using Groups = QMap<QString, QVariantMap>;

constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";
constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto gnome = "org.gnome.desktop.interface";

QVariant wrapped(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
}

/// A settings portal that answers when it is told to.
class Portal final : public QDBusVirtualObject {
 public:
    explicit Portal(const QString& address) : bus_(address) {
        qDBusRegisterMetaType<Groups>();
        bus_.connection().registerVirtualObject(path, this);
        bus_.connection().registerService("org.freedesktop.portal.Desktop");
    }

    ~Portal() override { bus_.connection().unregisterObject(path); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        question = message;
        return true;
    }
    QString introspect(const QString&) const override { return {}; }

    void answer(const QVariant& value) { bus_.connection().send(question.createReply(value)); }
    void refuse() {
        bus_.connection().send(question.createErrorReply(QDBusError::AccessDenied, "no"));
    }
    void announce(const QVariantList& arguments) {
        auto signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
        signal.setArguments(arguments);
        bus_.connection().send(signal);
    }

    QDBusMessage question;

 private:
    SessionBus bus_;
};

struct Wishes {
    bool dark;
    bool animations;
    bool operator==(const Wishes&) const = default;
};
Wishes wishesOf(const Appearance& desktop) {
    return {desktop.dark(), desktop.animations()};
}
void PrintTo(const Wishes& wishes, std::ostream* out) {
    *out << (wishes.dark ? "dark" : "light") << (wishes.animations ? ", moving" : ", still");
}

class PortalAppearanceTest : public testing::Test {
 protected:
    PrivateBus daemon;
    SessionBus bus{daemon.address()};
    Portal portal{daemon.address()};
};

TEST_F(PortalAppearanceTest, TakesWhatThePortalAnswers) {
    struct Case {
        QVariant scheme;
        QVariant animations;
        Wishes wanted;
    };
    const Case cases[] = {{0U, true, {true, true}},
                          {1U, false, {true, false}},
                          {2U, true, {false, true}},
                          {77U, false, {true, false}},
                          {wrapped(2U), wrapped(false), {false, false}},
                          {"2", 0, {true, true}},
                          {2, "false", {true, true}},
                          {QVariantList{2U}, QByteArray(), {true, true}}};
    for (const Case& each : cases) {
        PortalAppearance wishes(bus);
        int changes = 0;
        const auto heard = wishes.onChange([&] { ++changes; });
        EXPECT_EQ(wishesOf(wishes), (Wishes{true, true})) << "before the answer";
        portal.question = {};
        ASSERT_TRUE(eventually([&] { return portal.question.member() == "ReadAll"; }));
        portal.answer(
            QVariant::fromValue(Groups{{appearance, {{"color-scheme", each.scheme}, {"other", 1}}},
                                       {gnome, {{"enable-animations", each.animations}}}}));
        // What comes after it tells that the answer has been read.
        portal.announce({appearance, "color-scheme", wrapped(each.wanted.dark ? 2U : 1U)});
        const int expected = each.wanted == Wishes{true, true} ? 1 : 2;
        EXPECT_TRUE(eventually([&] { return changes == expected; }));
        EXPECT_EQ(wishesOf(wishes), (Wishes{!each.wanted.dark, each.wanted.animations}));
    }
}

TEST_F(PortalAppearanceTest, FollowsChangesAndIgnoresStrangeOnes) {
    PortalAppearance wishes(bus);
    int changes = 0;
    const auto heard = wishes.onChange([&] { ++changes; });
    ASSERT_TRUE(eventually([&] { return portal.question.type() != QDBusMessage::InvalidMessage; }));
    portal.refuse();
    portal.announce({appearance, "color-scheme", wrapped("light")});
    portal.announce({appearance, "color-scheme", 2U});
    portal.announce({appearance, "accent-color", wrapped(2U)});
    portal.announce({gnome, "color-scheme", wrapped(2U)});
    portal.announce({});
    portal.announce({gnome, "enable-animations", wrapped(false)});
    EXPECT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(wishesOf(wishes), (Wishes{true, false}));
    portal.announce({gnome, "enable-animations", wrapped(false)});
    portal.announce({appearance, "color-scheme", wrapped(2U)});
    EXPECT_TRUE(eventually([&] { return !wishes.dark(); }));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalAppearanceTest, AnswersOfTheWrongShapeSayNothing) {
    for (const QVariant& answer : {QVariant(5), QVariant(QVariantMap{{appearance, 2U}})}) {
        PortalAppearance wishes(bus);
        portal.question = {};
        ASSERT_TRUE(eventually([&] { return portal.question.member() == "ReadAll"; }));
        portal.answer(answer);
        portal.announce({gnome, "enable-animations", wrapped(false)});
        EXPECT_TRUE(eventually([&] { return !wishes.animations(); }));
        EXPECT_TRUE(wishes.dark());
    }
}

TEST(PortalAppearanceWithoutBusTest, IsDarkAndMoves) {
    SessionBus none;
    const PortalAppearance wishes(none);
    EXPECT_EQ(wishesOf(wishes), (Wishes{true, true}));
}

}  // namespace
}  // namespace noonward::test
