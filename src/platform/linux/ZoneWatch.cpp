#include "platform/linux/ZoneWatch.h"

#include <QDBusArgument>
#include <chrono>
#include <utility>

namespace noonward {
namespace {

// Between the old link's end and the new one's beginning there may be no zone at all.
constexpr std::chrono::milliseconds settled(200);

const QString timedate = QStringLiteral("org.freedesktop.timedate1");

}  // namespace

ZoneWatch::ZoneWatch(SystemBus& bus, const std::filesystem::path& root)
    : files_(root / "etc", {"localtime", "timezone"}, [this] { settling_.start(); }),
      properties_([this](const QDBusMessage& signal) { takeProperties(signal); }) {
    settling_.setSingleShot(true);
    settling_.setInterval(settled);
    settling_.callOnTimeout([this] { notices_.announce(); });
    if (bus.connection().isConnected())
        properties_.listen(bus.connection(), QStringLiteral("/org/freedesktop/timedate1"),
                           QStringLiteral("org.freedesktop.DBus.Properties"),
                           QStringLiteral("PropertiesChanged"), timedate);
}

Subscription ZoneWatch::subscribe(std::function<void()> listener) {
    return notices_.subscribe(std::move(listener));
}

// The service tells of the clock's synchronisation as well.
void ZoneWatch::takeProperties(const QDBusMessage& signal) {
    if (signal.signature() != QLatin1String("sa{sv}as")) return;
    const QVariantList arguments = signal.arguments();
    if (arguments[0].toString() != timedate) return;
    const QString zone = QStringLiteral("Timezone");
    if (qdbus_cast<QVariantMap>(arguments[1]).contains(zone) ||
        arguments[2].toStringList().contains(zone))
        settling_.start();
}

}  // namespace noonward
