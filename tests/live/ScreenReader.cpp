#include "live/ScreenReader.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace noonward::test {
namespace {

using Thing = ScreenReader::Thing;

const Thing registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/registry"};
const Thing everything{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
constexpr auto accessible = "org.a11y.atspi.Accessible";
constexpr auto action = "org.a11y.atspi.Action";
constexpr auto value = "org.a11y.atspi.Value";

// The session's bus knows where the bus of the assistive programs is.
QDBusConnection readersBus(const QString& sessionBus) {
    SessionBus session(sessionBus);
    const QDBusReply<QString> address = session.connection().call(QDBusMessage::createMethodCall(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
    return QDBusConnection::connectToBus(address.value(), "screen reader");
}

Thing thingIn(const QDBusArgument& argument) {
    Thing thing;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> thing.service >> path;
    argument.endStructure();
    thing.path = path.path();
    return thing;
}

}  // namespace

ScreenReader::ScreenReader(const QString& sessionBus)
    : bus_(readersBus(sessionBus)), listener_([this](const auto& event) { heard(event); }) {
    listen();
}

// Programs tell only what somebody has asked to be told.
void ScreenReader::listen() {
    for (const char* event : {"object:state-changed:focused", "object:state-changed:showing",
                              "object:property-change:accessible-name"})
        ask(registry, "org.a11y.atspi.Registry", "RegisterEvent", {event, QStringList(), ""});
    listener_.listen(bus_, {}, "org.a11y.atspi.Event.Object", "StateChanged");
}

void ScreenReader::heard(const QDBusMessage& event) {
    const QVariantList values = event.arguments();
    if (values.size() < 2 || values.at(1).toInt() != 1) return;
    const Thing thing{event.service(), event.path()};
    if (values.at(0) == "focused") focused_ = name(thing);
    if (values.at(0) == "showing" && role(thing) == "notification") notices_ << name(thing);
}

QString ScreenReader::focused() {
    QCoreApplication::processEvents();
    return focused_;
}

QStringList ScreenReader::notices() {
    QCoreApplication::processEvents();
    return notices_;
}

QDBusMessage ScreenReader::ask(const Thing& thing, const char* interface, const char* member,
                               const QVariantList& values) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(thing.service, thing.path, interface, member);
    call.setArguments(values);
    return bus_.call(call, QDBus::Block, 10000);
}

QVariant ScreenReader::property(const Thing& thing, const char* interface, const char* name) {
    const QDBusReply<QDBusVariant> reply =
        ask(thing, "org.freedesktop.DBus.Properties", "Get", {interface, name});
    return reply.value().variant();
}

std::vector<Thing> ScreenReader::children(const Thing& thing) {
    std::vector<Thing> found;
    const QVariantList reply = ask(thing, accessible, "GetChildren").arguments();
    if (reply.isEmpty() || reply.at(0).userType() != qMetaTypeId<QDBusArgument>()) return found;
    const auto list = reply.at(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd())
        found.push_back(thingIn(list));
    list.endArray();
    return found;
}

std::optional<Thing> ScreenReader::find(const QString& role, const QString& name) {
    return find(everything, role, name);
}

std::optional<Thing> ScreenReader::find(const Thing& within, const QString& role,
                                        const QString& name) {
    for (const Thing& child : children(within)) {
        if (this->name(child).startsWith(name) && this->role(child) == role) return child;
        if (auto below = find(child, role, name)) return below;
    }
    return std::nullopt;
}

QString ScreenReader::name(const Thing& thing) {
    return property(thing, accessible, "Name").toString();
}

QString ScreenReader::role(const Thing& thing) {
    return QDBusReply<QString>(ask(thing, accessible, "GetRoleName")).value();
}

bool ScreenReader::hasState(const Thing& thing, unsigned state) {
    const QDBusReply<QList<uint>> reply = ask(thing, accessible, "GetState");
    const QList<uint> words = reply.value();
    return words.size() == 2 && (words.at(state / 32) >> state % 32 & 1U) == 1;
}

QStringList ScreenReader::actions(const Thing& thing) {
    QStringList names;
    const int count = property(thing, action, "NActions").toInt();
    for (int i = 0; i < count; ++i)
        names << QDBusReply<QString>(ask(thing, action, "GetName", {i})).value();
    return names;
}

bool ScreenReader::act(const Thing& thing, const QString& name) {
    const auto index = static_cast<int>(actions(thing).indexOf(name));
    return index >= 0 && QDBusReply<bool>(ask(thing, action, "DoAction", {index})).value();
}

double ScreenReader::value(const Thing& thing) {
    return property(thing, test::value, "CurrentValue").toDouble();
}

void ScreenReader::setValue(const Thing& thing, double to) {
    ask(thing, "org.freedesktop.DBus.Properties", "Set",
        {test::value, "CurrentValue", QVariant::fromValue(QDBusVariant(to))});
}

}  // namespace noonward::test
