#include "platform/linux/ZoneWatch.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>

#include "support/PrivateBus.h"
#include "support/TempFolder.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

namespace fs = std::filesystem;

class ZoneWatchTest : public testing::Test {
 protected:
    ZoneWatchTest() { writeText(etc / "hostname", "one\n"); }

    void link(const char* zone, const char* name = "localtime") const {
        fs::create_symlink(std::string("/usr/share/zoneinfo/") + zone, etc / name);
    }

    PrivateBus daemon;
    SystemBus bus{daemon.address()};
    TempFolder root;
    fs::path etc = root / "etc";
};

TEST_F(ZoneWatchTest, SeesHoweverTheSettingIsReplaced) {
    struct Case {
        const char* what;
        std::function<void()> change;
    };
    const Case cases[] = {
        {"comes", [&] { link("Europe/Rome"); }},
        {"is replaced by renaming",
         [&] {
             link("Asia/Tokyo", ".#localtime1234");
             fs::rename(etc / ".#localtime1234", etc / "localtime");
         }},
        {"goes and comes again",
         [&] {
             fs::remove(etc / "localtime");
             link("Asia/Oral");
         }},
        {"goes", [&] { fs::remove(etc / "localtime"); }},
        {"is a file", [&] { writeText(etc / "localtime", "TZif"); }},
        {"is written over", [&] { writeText(etc / "localtime", "TZif2"); }},
        {"is named", [&] { writeText(etc / "timezone", "Asia/Tokyo\n"); }},
    };
    ZoneWatch watch(bus, root.path());
    int notices = 0;
    const Subscription heard = watch.subscribe([&] { ++notices; });
    int changes = 0;
    for (const Case& each : cases) {
        each.change();
        EXPECT_EQ(notices, changes++) << each.what << ": told from the event loop";
        EXPECT_TRUE(eventually([&] { return notices >= changes; })) << each.what;
        EXPECT_EQ(notices, changes) << each.what;
    }
}

TEST_F(ZoneWatchTest, HearsTheServiceThatSetsIt) {
    SystemBus service(daemon.address());
    ASSERT_TRUE(service.connection().registerService("org.freedesktop.timedate1"));
    SystemBus stranger(daemon.address());
    ZoneWatch watch(bus, root / "nowhere");
    int notices = 0;
    const Subscription heard = watch.subscribe([&] { ++notices; });
    const auto announce = [](SystemBus& sender, const QVariantList& arguments) {
        auto signal = QDBusMessage::createSignal(
            "/org/freedesktop/timedate1", "org.freedesktop.DBus.Properties", "PropertiesChanged");
        signal.setArguments(arguments);
        sender.connection().send(signal);
    };
    const QVariantMap zone{{"Timezone", "Asia/Tokyo"}};
    const QString timedate = "org.freedesktop.timedate1";
    announce(stranger, {timedate, zone, QStringList()});
    const QVariantList others[] = {{timedate, QVariantMap{{"NTP", true}}, QStringList{"CanNTP"}},
                                   {"org.freedesktop.other", zone, QStringList()},
                                   {timedate, zone},
                                   {timedate, "Timezone", QStringList{"Timezone"}},
                                   {}};
    for (const QVariantList& arguments : others)
        announce(service, arguments);
    // Signals come in order: what was to be ignored has been by then.
    int served = 0;
    BusListener last([&](const QDBusMessage&) { ++served; });
    last.listen(bus.connection(), "/last", "a.b", "c");
    ASSERT_TRUE(eventually([&] {
        service.connection().send(QDBusMessage::createSignal("/last", "a.b", "c"));
        return served > 0;
    }));

    const QVariantList changes[] = {{timedate, zone, QStringList()},
                                    {timedate, QVariantMap(), QStringList{"NTP", "Timezone"}}};
    int told = 0;
    for (const QVariantList& arguments : changes) {
        announce(service, arguments);
        announce(service, arguments);
        ++told;
        EXPECT_TRUE(eventually([&] { return notices >= told; }));
        EXPECT_EQ(notices, told);
    }
}

TEST(FolderWatchTest, LeavesOtherEntriesAlone) {
    const TempFolder folder;
    int changes = 0;
    const FolderWatch watch(folder.path(), {"localtime"}, [&] { ++changes; });
    for (const char* other : {"hostname", "localtime.bak", "localtim", "a-very-long-name-indeed"})
        writeText(folder / other, "x");
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
    for (int i = 0; i < 500; ++i)
        writeText(folder / ("other" + std::to_string(i)), "x");
    writeText(folder / "localtime", "x");
    EXPECT_TRUE(eventually([&] { return changes == 1; }));
}

}  // namespace
}  // namespace noonward::test
