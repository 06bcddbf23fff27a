#include "platform/linux/PortalIdentity.h"

#include <QVariantMap>

namespace noonward {
namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");

}  // namespace

PortalIdentity::PortalIdentity(SessionBus& bus)
    : bus_(bus), owner_(portal, bus.connection(), QDBusServiceWatcher::WatchForRegistration) {
    // Another portal knows nothing of what the former was told.
    QObject::connect(&owner_, &QDBusServiceWatcher::serviceRegistered, &owner_, [this] { tell(); });
    tell();
}

// Whatever it answers: what it grants will show.
void PortalIdentity::tell() {
    if (!bus_.connection().isConnected()) return;
    auto call = QDBusMessage::createMethodCall(
        portal, QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"));
    call << QStringLiteral("com.ostrelmead.noonward") << QVariantMap();
    bus_.connection().send(call);
}

}  // namespace noonward
