#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include "live/WaylandHand.h"

namespace noonward::test {
namespace {

const QString name = QStringLiteral("org.gnome.Mutter.RemoteDesktop");

class RemoteDevices final : public WaylandHand::Devices {
 public:
    explicit RemoteDevices(const QString& address)
        : bus_(QDBusConnection::connectToBus(address, address)) {
        session_ = tell(QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), name, "CreateSession")
                       .arguments()
                       .value(0)
                       .value<QDBusObjectPath>()
                       .path();
        tell("Start");
        // Motion is relative there: to a corner first, and not to the one that opens the overview.
        moveBy(-4000, 4000);
        key(42, true);  // the first key makes the keyboard, and is lost
        key(42, false);
    }

    void moveTo(QPoint to) override {
        moveBy(to.x() - at_.x(), to.y() - at_.y());
        at_ = to;
    }
    void button(std::uint32_t code, bool down) override {
        tell("NotifyPointerButton", {static_cast<int>(code), down});
    }
    void key(std::uint32_t code, bool down) override {
        tell("NotifyKeyboardKeycode", {code, down});
    }

 private:
    void moveBy(double x, double y) { tell("NotifyPointerMotionRelative", {x, y}); }
    void tell(const char* member, const QVariantList& arguments = {}) {
        tell(session_, name + QStringLiteral(".Session"), member, arguments);
    }
    QDBusMessage tell(const QString& path, const QString& interface, const char* member,
                      const QVariantList& arguments = {}) {
        auto message =
            QDBusMessage::createMethodCall(name, path, interface, QString::fromLatin1(member));
        message.setArguments(arguments);
        return bus_.call(message);
    }

    QDBusConnection bus_;
    QString session_;
    QPoint at_{0, 899};
};

}  // namespace

std::unique_ptr<WaylandHand::Devices> remoteDevices(const std::string& bus) {
    return std::make_unique<RemoteDevices>(QString::fromStdString(bus));
}

}  // namespace noonward::test
