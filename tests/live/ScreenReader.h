#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/MessageBus.h"

namespace noonward::test {

/// A screen reader: what assistive programs find out over their bus, and do (AT-SPI 2,
/// https://gitlab.gnome.org/GNOME/at-spi2-core). The desktop's side of it must run already.
class ScreenReader {
 public:
    /// Given the address of the session's bus.
    explicit ScreenReader(const QString& sessionBus);
    ~ScreenReader() { QDBusConnection::disconnectFromBus(bus_.name()); }

    /// Something that it knows, for as long as the program has it.
    struct Thing {
        QString service;
        QString path;
        bool operator==(const Thing&) const = default;
    };

    /// The first thing of that role whose name begins so, in the program or within another thing.
    std::optional<Thing> find(const QString& role, const QString& name);
    std::optional<Thing> find(const Thing& within, const QString& role, const QString& name);

    QString name(const Thing& thing);
    QString role(const Thing& thing);
    bool isChecked(const Thing& thing) { return hasState(thing, 4); }
    bool isEditable(const Thing& thing) { return hasState(thing, 7); }
    QStringList actions(const Thing& thing);
    bool act(const Thing& thing, const QString& name);
    double value(const Thing& thing);
    void setValue(const Thing& thing, double to);

    /// What has got the focus last, as far as it was told.
    QString focused();
    /// The messages that came into sight.
    QStringList notices();

 private:
    QDBusMessage ask(const Thing& thing, const char* interface, const char* member,
                     const QVariantList& values = {});
    QVariant property(const Thing& thing, const char* interface, const char* name);
    std::vector<Thing> children(const Thing& thing);
    bool hasState(const Thing& thing, unsigned state);
    void heard(const QDBusMessage& event);
    void listen();

    QDBusConnection bus_;
    BusListener listener_;
    QString focused_;
    QStringList notices_;
};

}  // namespace noonward::test
