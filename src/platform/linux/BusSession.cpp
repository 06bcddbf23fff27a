#include "platform/linux/BusSession.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>
#include <utility>

namespace noonward {
namespace {

constexpr int longestWait = 2000;  // ms, for an answer without which the program can go on

const QString name = QStringLiteral("com.ostrelmead.noonward");
const QString path = QStringLiteral("/com/ostrelmead/noonward");
const QString applicationInterface = QStringLiteral("org.freedesktop.Application");

// The bus's own numbers (D-Bus Specification, RequestName).
constexpr std::uint32_t queue = 0;
constexpr std::uint32_t doNotQueue = 4;
constexpr std::uint32_t nameExists = 3;

QDBusMessage requestName(std::uint32_t flags) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    call << name << flags;
    return call;
}

QDBusMessage activate() {
    auto call = QDBusMessage::createMethodCall(name, path, applicationInterface,
                                               QStringLiteral("Activate"));
    call << QVariantMap();
    return call;
}

// A copy that is only busy will come forward later.
bool isRefusal(const QDBusMessage& answer) {
    return answer.type() == QDBusMessage::ErrorMessage &&
           QDBusError(answer).type() != QDBusError::NoReply;
}

}  // namespace

/// What other programs see of this one.
class BusSession::Application final : public QDBusVirtualObject {
 public:
    explicit Application(std::function<void()> activated) : activated_(std::move(activated)) {}

    // Nothing is made of the arguments, so that none can do harm.
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        const QString interface = message.interface();
        const QString member = message.member();
        if (!interface.isEmpty() && interface != applicationInterface) return false;
        const bool isActivate = member == QLatin1String("Activate");
        if (!isActivate && member != QLatin1String("Open") &&
            member != QLatin1String("ActivateAction"))
            return false;
        if (message.isReplyRequired()) connection.send(message.createReply());
        if (isActivate) activated_();
        return true;
    }

    QString introspect(const QString&) const override {
        return QStringLiteral(
            "<interface name=\"org.freedesktop.Application\">"
            "<method name=\"Activate\"><arg type=\"a{sv}\" direction=\"in\"/></method>"
            "<method name=\"Open\"><arg type=\"as\" direction=\"in\"/>"
            "<arg type=\"a{sv}\" direction=\"in\"/></method>"
            "<method name=\"ActivateAction\"><arg type=\"s\" direction=\"in\"/>"
            "<arg type=\"av\" direction=\"in\"/><arg type=\"a{sv}\" direction=\"in\"/></method>"
            "</interface>");
    }

 private:
    std::function<void()> activated_;
};

BusSession::BusSession(SessionBus& bus) : bus_(bus) {}

BusSession::~BusSession() {
    if (application_) bus_.connection().unregisterObject(path);
}

Session::Claim BusSession::claim(std::function<void()> activated) {
    QDBusConnection& bus = bus_.connection();
    if (!bus.isConnected()) return Claim::alone;
    // Callable before it has the name: whoever finds that taken calls at once.
    application_ = std::make_unique<Application>(std::move(activated));
    bus.registerVirtualObject(path, application_.get(), QDBusConnection::SingleNode);
    const QDBusMessage answer = bus.call(requestName(doNotQueue), QDBus::Block, longestWait);
    if (answer.type() != QDBusMessage::ReplyMessage) return Claim::alone;
    if (answer.arguments().value(0).toUInt() != nameExists) return Claim::first;
    if (isRefusal(bus.call(activate(), QDBus::Block, longestWait))) {
        // That copy is ending: this one has the name as soon as it is free.
        bus.call(requestName(queue), QDBus::Block, longestWait);
        return Claim::first;
    }
    bus.unregisterObject(path);
    application_.reset();
    return Claim::another;
}

Subscription BusSession::onSignal(const std::string& member, std::function<void()> action) {
    auto listener = std::make_shared<BusListener>(
        [action = std::move(action)](const QDBusMessage&) { action(); });
    listener->listen(bus_.connection(), QString(), name, QString::fromStdString(member));
    return Subscription([listener]() mutable { listener.reset(); });
}

Subscription BusSession::onEnd(std::function<void()> action) {
    return ends_.onEnd(std::move(action));
}

}  // namespace noonward
