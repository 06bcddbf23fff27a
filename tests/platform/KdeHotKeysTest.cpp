#include "platform/linux/KdeHotKeys.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusVirtualObject>

#include "support/PrivateBus.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

/// The desktop's service for keys.
class Service final : public QDBusVirtualObject {
 public:
    explicit Service(const QString& address) : bus_(address) {
        bus_.connection().registerVirtualObject("/kglobalaccel", this);
        start();
    }
    ~Service() override { bus_.connection().unregisterObject("/kglobalaccel"); }
    void start() { bus_.connection().registerService("org.kde.kglobalaccel"); }
    void stop() { bus_.connection().unregisterService("org.kde.kglobalaccel"); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        EXPECT_EQ(message.interface(), "org.kde.KGlobalAccel");
        const QVariantList arguments = message.arguments();
        QString call = message.member();
        for (const QString& name : arguments.value(0).toStringList().first(2))
            call += ' ' + name;
        if (arguments.size() == 3) {
            for (const int key : qdbus_cast<QList<int>>(arguments[1]))
                call += ' ' + QString::number(key, 16);
            call += ' ' + QString::number(arguments[2].toUInt());
        }
        asked << call;
        return false;
    }
    QString introspect(const QString&) const override { return {}; }

    void press(const QString& component, const QString& action) {
        auto signal = QDBusMessage::createSignal(
            "/component/noonward", "org.kde.kglobalaccel.Component", "globalShortcutPressed");
        signal << component << action << qlonglong(7);
        bus_.connection().send(signal);
    }

    QStringList asked;

 private:
    SessionBus bus_;
};

TEST(KdeHotKeys, AsksForItsKeyAndHearsThatAlone) {
    const PrivateBus daemon;
    SessionBus bus(daemon.address());
    Service service(daemon.address());
    KdeHotKeys keys(bus);
    int presses = 0;
    EXPECT_EQ(keys.registerKey(17, HotKeys::control | HotKeys::option, 1,
                               [&](std::uint32_t id) { presses += static_cast<int>(id); }),
              HotKeys::Outcome::registered);
    const QStringList expected{"doRegister noonward key1", "setShortcut noonward key1 c000054 8",
                               "setShortcut noonward key1 c000054 2"};
    EXPECT_TRUE(eventually([&] { return service.asked == expected; }))
        << service.asked.join('\n').toStdString();
    service.press("kwin", "key1");
    service.press("noonward", "key2");
    service.press("noonward", "key1");
    EXPECT_TRUE(eventually([&] { return presses > 0; }));
    EXPECT_EQ(presses, 1);

    service.stop();
    service.asked.clear();
    service.start();
    EXPECT_TRUE(eventually([&] { return service.asked == expected; })) << "asked anew";
}

TEST(KdeHotKeys, KnowsItsDesktop) {
    EXPECT_TRUE(KdeHotKeys::isTheirs("KDE"));
    EXPECT_TRUE(KdeHotKeys::isTheirs("Kubuntu:KDE"));
    for (const char* other : {"GNOME", "", "KDEX", "sway:wlroots"})
        EXPECT_FALSE(KdeHotKeys::isTheirs(other)) << other;
    EXPECT_FALSE(KdeHotKeys::isTheirs(nullptr));
}

}  // namespace
}  // namespace noonward::test
