#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "platform/linux/MessageBus.h"

namespace noonward {

/// One key of the program's, asked of the desktop by its portal for them
/// (org.freedesktop.portal.GlobalShortcuts). The desktop may take its time, ask the user, choose
/// another key, refuse, and take the key back. All that it says is checked, and heard from it
/// alone.
class PortalShortcut {
 public:
    struct Wish {
        QString id;           ///< tells it from the program's others
        QString description;  ///< shown to the user
        QString trigger;      ///< of the freedesktop shortcuts specification, such as "CTRL+ALT+t"
    };
    struct Callbacks {
        std::function<void()> pressed;
        std::function<void()> refused;  ///< there is no such key; it may still come
    };

    /// Asks; answers come from the event loop. The bus must outlive this object.
    PortalShortcut(SessionBus& bus, Wish wish, Callbacks callbacks);

    /// Whether the desktop tells of presses.
    bool isBound() const { return state_ == State::bound; }

 private:
    enum class State { refused, asked, bound };
    using Granted = std::function<void(const QVariantMap& results)>;

    void ask();
    void list(const QVariantMap& created);
    void bind();
    bool isIn(const QVariantMap& shortcuts) const;
    QDBusMessage sessionCall(const char* member) const;
    void takePress(const QDBusMessage& signal);
    void takeOwner(const QString& before, const QString& now);
    void refuse();

    void request(QDBusMessage call, QVariantMap options, Granted granted,
                 std::function<void()> denied);
    void denyRequest();
    void awaitResponse(const QString& handle);
    void takeHandle(const QDBusMessage& answer);
    void takeResponse(const QDBusMessage& response);

    SessionBus& bus_;
    Wish wish_;
    Callbacks callbacks_;
    State state_ = State::refused;
    int questions_ = 0;
    QString session_;  // handle, once there is one
    QString handle_;   // of the request under way
    Granted granted_;  // what comes next
    std::function<void()> denied_;
    BusListener activations_;
    BusListener responses_;  // to requests; old ones are told by their paths
    BusListener closings_;
    std::unique_ptr<QDBusPendingCallWatcher> call_;
    QDBusServiceWatcher owner_;
};

}  // namespace noonward
