#include "platform/linux/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMap>
#include <utility>

namespace noonward {
namespace {

const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");

constexpr std::uint32_t preferLight = 2;  // of "color-scheme"

// What a variant holds, however many variants it is wrapped in: portals differ there.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = qvariant_cast<QDBusVariant>(value).variant();
    return value;
}

}  // namespace

PortalAppearance::PortalAppearance(SessionBus& bus)
    : listener_([this](const QDBusMessage& signal) { takeChange(signal); }) {
    if (!bus.connection().isConnected()) return;
    listener_.listen(bus.connection(), path, settings, QStringLiteral("SettingChanged"));
    ask(bus.connection());
}

Subscription PortalAppearance::onChange(std::function<void()> action) {
    return changes_.subscribe(std::move(action));
}

void PortalAppearance::ask(QDBusConnection& bus) {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                               path, settings, QStringLiteral("ReadAll"));
    call << QStringList{appearance, gnome};
    question_ = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(call));
    QObject::connect(question_.get(), &QDBusPendingCallWatcher::finished, &listener_,
                     [this](QDBusPendingCallWatcher* answered) {
                         takeAll(answered->reply());
                         question_.release()->deleteLater();
                     });
}

void PortalAppearance::Wishes::take(const QString& group, const QString& key,
                                    const QVariant& value) {
    const QVariant bare = unwrapped(value);
    const int type = bare.metaType().id();
    if (group == appearance && key == QLatin1String("color-scheme") && type == QMetaType::UInt)
        dark = bare.toUInt() != preferLight;
    if (group == gnome && key == QLatin1String("enable-animations") && type == QMetaType::Bool)
        animations = bare.toBool();
}

void PortalAppearance::takeAll(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage) return;
    if (answer.signature() != QLatin1String("a{sa{sv}}")) return;
    QMap<QString, QVariantMap> groups;
    qvariant_cast<QDBusArgument>(answer.arguments().value(0)) >> groups;
    Wishes wishes = wishes_;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group)
        for (auto entry = group->cbegin(); entry != group->cend(); ++entry)
            wishes.take(group.key(), entry.key(), entry.value());
    set(wishes);
}

void PortalAppearance::takeChange(const QDBusMessage& signal) {
    if (signal.signature() != QLatin1String("ssv")) return;
    const QVariantList arguments = signal.arguments();
    Wishes wishes = wishes_;
    wishes.take(arguments[0].toString(), arguments[1].toString(), arguments[2]);
    set(wishes);
}

void PortalAppearance::set(const Wishes& wishes) {
    if (std::exchange(wishes_, wishes) == wishes) return;
    changes_.announce();
}

}  // namespace noonward
