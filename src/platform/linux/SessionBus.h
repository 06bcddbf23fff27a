#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <functional>

namespace noonward {

/// The message bus of the user's session (D-Bus). Where none is announced none is started, and the
/// connection is one that is not connected.
class SessionBus {
 public:
    /// An address as in DBUS_SESSION_BUS_ADDRESS; empty: the session's own, which Qt shares.
    explicit SessionBus(const QString& address = {});
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;
    ~SessionBus();

    /// Keeps the bus library, which Qt's own parts use as well, from starting a bus where none is
    /// announced: nobody else would be on it. Call before the application object is made.
    static void startNone();

    QDBusConnection& connection() { return connection_; }

 private:
    QDBusConnection connection_;
    bool isOwn_;
};

/// Hands on each bus signal that it is connected to.
class BusListener final : public QObject {
    Q_OBJECT
 public:
    using Action = std::function<void(const QDBusMessage& message)>;
    explicit BusListener(Action action) : action_(std::move(action)) {}

    /// From any sender; an empty path is any path.
    bool listen(QDBusConnection& bus, const QString& path, const QString& interface,
                const QString& member);

 public Q_SLOTS:
    void heard(const QDBusMessage& message) { action_(message); }

 private:
    Action action_;
};

}  // namespace noonward
