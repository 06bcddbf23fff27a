#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <functional>

namespace noonward {

/// A message bus (D-Bus). Where there is none the connection is one that is not connected.
class MessageBus {
 public:
    MessageBus(const MessageBus&) = delete;
    MessageBus& operator=(const MessageBus&) = delete;

    QDBusConnection& connection() { return connection_; }

 protected:
    /// A connection of its own to an address; without one, `shared`.
    MessageBus(const QString& address, QDBusConnection (*shared)());
    ~MessageBus();

 private:
    QDBusConnection connection_;
    bool isOwn_;
};

/// The message bus of the user's session. Where none is announced none is started.
class SessionBus final : public MessageBus {
 public:
    /// An address as in DBUS_SESSION_BUS_ADDRESS; empty: the session's own, which Qt shares.
    explicit SessionBus(const QString& address = {});

    /// Keeps the bus library, which Qt's own parts use as well, from starting a bus where none is
    /// announced: nobody else would be on it. Call before the application object is made.
    static void startNone();
};

/// The message bus of the whole computer.
class SystemBus final : public MessageBus {
 public:
    /// An address as in DBUS_SYSTEM_BUS_ADDRESS; empty: the computer's own, which Qt shares.
    explicit SystemBus(const QString& address = {});
};

/// Hands on each bus signal that it is connected to.
class BusListener final : public QObject {
    Q_OBJECT
 public:
    using Action = std::function<void(const QDBusMessage& message)>;
    explicit BusListener(Action action) : action_(std::move(action)) {}

    /// An empty sender is any sender, an empty path any path.
    bool listen(QDBusConnection& bus, const QString& path, const QString& interface,
                const QString& member, const QString& sender = {});

 public Q_SLOTS:
    void heard(const QDBusMessage& message) { action_(message); }

 private:
    Action action_;
};

}  // namespace noonward
