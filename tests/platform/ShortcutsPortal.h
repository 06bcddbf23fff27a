#pragma once

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <vector>

#include "platform/linux/MessageBus.h"
#include "support/Wait.h"

namespace noonward::test::shortcuts {

/// A shortcut as it goes over the bus: (sa{sv}).
struct Entry {
    QString id;
    QVariantMap values;
};
inline QDBusArgument& operator<<(QDBusArgument& argument, const Entry& entry) {
    argument.beginStructure();
    argument << entry.id << entry.values;
    argument.endStructure();
    return argument;
}
inline const QDBusArgument& operator>>(const QDBusArgument& argument, Entry& entry) {
    argument.beginStructure();
    argument >> entry.id >> entry.values;
    argument.endStructure();
    return argument;
}
using Entries = QList<Entry>;

inline const QString folder = "/org/freedesktop/portal/desktop";
inline const QString service = "org.freedesktop.portal.Desktop";
inline const QString shortcutsInterface = "org.freedesktop.portal.GlobalShortcuts";
inline const QString session = folder + "/session/1_9/noonward";

/// A portal that does what the test says.
class Portal final : public QDBusVirtualObject {
 public:
    explicit Portal(const QString& address) : bus_(address) {
        qDBusRegisterMetaType<Entry>();
        qDBusRegisterMetaType<Entries>();
        bus_.connection().registerVirtualObject(folder, this);
        start();
    }
    ~Portal() override { bus_.connection().unregisterObject(folder); }
    void start() { bus_.connection().registerService(service); }
    void stop() { bus_.connection().unregisterService(service); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        asked.push_back(message);
        return true;
    }
    QString introspect(const QString&) const override { return {}; }

    /// Waits for a call, and gives its options.
    QVariantMap await(const char* member) {
        EXPECT_TRUE(eventually([&] { return !asked.empty(); })) << member;
        question = asked.empty() ? QDBusMessage() : asked.front();
        asked.clear();
        EXPECT_EQ(question.member(), member);
        return qdbus_cast<QVariantMap>(question.arguments().value(question.arguments().size() - 1));
    }
    /// Of the latest call: where its response is waited for.
    QString handle() const {
        const auto options = qdbus_cast<QVariantMap>(question.arguments().constLast());
        QString sender = question.service().mid(1);
        sender.replace('.', '_');
        return folder + "/request/" + sender + '/' + options["handle_token"].toString();
    }
    void answer(const QVariant& value) { bus_.connection().send(question.createReply(value)); }
    void refuse() {
        bus_.connection().send(question.createErrorReply(QDBusError::UnknownMethod, "no"));
    }
    void send(const QString& path, const QString& interface, const char* member,
              const QVariantList& arguments) {
        auto signal = QDBusMessage::createSignal(path, interface, member);
        signal.setArguments(arguments);
        bus_.connection().send(signal);
    }
    void respond(const QString& to, const QVariantList& arguments) {
        send(to, "org.freedesktop.portal.Request", "Response", arguments);
    }
    void grant(const QVariantMap& results) {
        const QString to = handle();
        answer(QVariant::fromValue(QDBusObjectPath(to)));
        respond(to, {0U, results});
    }
    void activate(const QString& inSession, const QString& id) {
        send(folder, shortcutsInterface, "Activated",
             {QVariant::fromValue(QDBusObjectPath(inSession)), id, qulonglong(7), QVariantMap()});
    }

    std::vector<QDBusMessage> asked;
    QDBusMessage question;

 private:
    SessionBus bus_;
};

}  // namespace noonward::test::shortcuts
