#include "platform/linux/SessionBus.h"

#include <QFileInfo>

namespace noonward {
namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

bool isAnnounced() {
    if (!qEnvironmentVariableIsEmpty(addressVariable)) return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

QString nextName() {
    static int count = 0;
    return QStringLiteral("noonward-%1").arg(++count);
}

QDBusConnection open(const QString& address) {
    if (!address.isEmpty()) return QDBusConnection::connectToBus(address, nextName());
    if (isAnnounced()) return QDBusConnection::sessionBus();
    return QDBusConnection(QString());
}

}  // namespace

SessionBus::SessionBus(const QString& address)
    : connection_(open(address)), isOwn_(!address.isEmpty()) {}

void SessionBus::startNone() {
    if (!isAnnounced()) qputenv(addressVariable, "disabled:");
}

SessionBus::~SessionBus() {
    if (isOwn_) QDBusConnection::disconnectFromBus(connection_.name());
}

bool BusListener::listen(QDBusConnection& bus, const QString& path, const QString& interface,
                         const QString& member) {
    return bus.connect(QString(), path, interface, member, this, SLOT(heard(QDBusMessage)));
}

}  // namespace noonward
