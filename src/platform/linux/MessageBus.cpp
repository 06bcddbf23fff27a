#include "platform/linux/MessageBus.h"

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

QDBusConnection session() {
    return isAnnounced() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

}  // namespace

MessageBus::MessageBus(const QString& address, QDBusConnection (*shared)())
    : connection_(address.isEmpty() ? shared()
                                    : QDBusConnection::connectToBus(address, nextName())),
      isOwn_(!address.isEmpty()) {}

MessageBus::~MessageBus() {
    if (isOwn_) QDBusConnection::disconnectFromBus(connection_.name());
}

SessionBus::SessionBus(const QString& address) : MessageBus(address, session) {}

void SessionBus::startNone() {
    if (!isAnnounced()) qputenv(addressVariable, "disabled:");
}

SystemBus::SystemBus(const QString& address) : MessageBus(address, QDBusConnection::systemBus) {}

bool BusListener::listen(QDBusConnection& bus, const QString& path, const QString& interface,
                         const QString& member, const QString& sender) {
    return bus.connect(sender, path, interface, member, this, SLOT(heard(QDBusMessage)));
}

}  // namespace noonward
