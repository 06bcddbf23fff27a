#include "platform/linux/PortalShortcut.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace noonward {

namespace {

// A shortcut as it goes over the bus: (sa{sv}).
struct PortalShortcutEntry {
    QString id;
    QVariantMap values;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcutEntry& entry) {
    argument.beginStructure();
    argument << entry.id << entry.values;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcutEntry& entry) {
    argument.beginStructure();
    argument >> entry.id >> entry.values;
    argument.endStructure();
    return argument;
}

using Entries = QList<PortalShortcutEntry>;

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

// A portal that ends whenever it is asked is not asked for ever.
constexpr int mostQuestions = 10;  // at most three for each binding

QDBusMessage portalCall(const char* member) {
    return QDBusMessage::createMethodCall(portal, path, interface, QString::fromLatin1(member));
}

// Portals differ in whether handles are texts or paths; other paths than theirs are none.
QString handleIn(const QVariant& value, const QString& kind) {
    const bool isPath = value.metaType() == QMetaType::fromType<QDBusObjectPath>();
    const QString handle = isPath ? qvariant_cast<QDBusObjectPath>(value).path() : value.toString();
    static const QRegularExpression ending(QStringLiteral("\\A(/[A-Za-z0-9_]+){1,9}\\z"));
    const QString folder = path + kind;
    return handle.startsWith(folder) && ending.match(handle.mid(folder.size())).hasMatch()
               ? handle
               : QString();
}

}  // namespace

PortalShortcut::PortalShortcut(SessionBus& bus, Wish wish, Callbacks callbacks)
    : bus_(bus),
      wish_(std::move(wish)),
      callbacks_(std::move(callbacks)),
      activations_([this](const QDBusMessage& signal) { takePress(signal); }),
      responses_([this](const QDBusMessage& signal) { takeResponse(signal); }),
      closings_([this](const QDBusMessage& signal) {
          if (signal.path() == session_) refuse();
      }),
      owner_(portal, bus.connection(), QDBusServiceWatcher::WatchForOwnerChange) {
    qDBusRegisterMetaType<PortalShortcutEntry>();
    qDBusRegisterMetaType<Entries>();
    activations_.listen(bus_.connection(), path, interface, QStringLiteral("Activated"), portal);
    QObject::connect(&owner_, &QDBusServiceWatcher::serviceOwnerChanged, &owner_,
                     [this](const QString&, const QString& before, const QString& now) {
                         takeOwner(before, now);
                     });
    ask();
}

void PortalShortcut::ask() {
    state_ = State::asked;
    request(
        portalCall("CreateSession"),
        {{QStringLiteral("session_handle_token"), QStringLiteral("noonward_") + wish_.id}},
        [this](const QVariantMap& created) { list(created); }, [this] { refuse(); });
}

// Portals that remember what the user has granted have it in a new session: to ask for it again
// could open a dialog at each login.
void PortalShortcut::list(const QVariantMap& created) {
    session_ =
        handleIn(created.value(QStringLiteral("session_handle")), QStringLiteral("/session"));
    if (session_.isEmpty()) return refuse();
    closings_.listen(bus_.connection(), session_, QStringLiteral("org.freedesktop.portal.Session"),
                     QStringLiteral("Closed"), portal);
    const auto take = [this](const QVariantMap& listed) {
        if (isIn(listed))
            state_ = State::bound;
        else
            bind();
    };
    request(sessionCall("ListShortcuts"), {}, take, [this] { bind(); });
}

void PortalShortcut::bind() {
    QDBusMessage call = sessionCall("BindShortcuts");
    const Entries shortcuts{{wish_.id,
                             {{QStringLiteral("description"), wish_.description},
                              {QStringLiteral("preferred_trigger"), wish_.trigger}}}};
    call << QVariant::fromValue(shortcuts) << QString();
    const auto take = [this](const QVariantMap& bound) {
        if (!isIn(bound)) return refuse();
        state_ = State::bound;
    };
    request(call, {}, take, [this] { refuse(); });
}

QDBusMessage PortalShortcut::sessionCall(const char* member) const {
    QDBusMessage call = portalCall(member);
    call << QVariant::fromValue(QDBusObjectPath(session_));
    return call;
}

// Whether it is among those that the user has agreed to.
bool PortalShortcut::isIn(const QVariantMap& shortcuts) const {
    const QVariant all = shortcuts.value(QStringLiteral("shortcuts"));
    if (all.metaType() != QMetaType::fromType<QDBusArgument>()) return false;
    const auto argument = qvariant_cast<QDBusArgument>(all);
    if (argument.currentSignature() != QLatin1String("a(sa{sv})")) return false;
    const auto entries = qdbus_cast<Entries>(argument);
    return std::any_of(entries.begin(), entries.end(),
                       [this](const PortalShortcutEntry& entry) { return entry.id == wish_.id; });
}

void PortalShortcut::takePress(const QDBusMessage& signal) {
    if (state_ != State::bound || !signal.signature().startsWith(QLatin1String("os"))) return;
    const QVariantList arguments = signal.arguments();
    const auto session = qvariant_cast<QDBusObjectPath>(arguments[0]).path();
    if (session == session_ && arguments[1].toString() == wish_.id) callbacks_.pressed();
}

// What a portal has granted ends with it. Another that somebody starts may grant it again.
void PortalShortcut::takeOwner(const QString& before, const QString& now) {
    if (!before.isEmpty() && state_ != State::refused) refuse();
    if (!now.isEmpty() && state_ == State::refused && questions_ < mostQuestions) ask();
}

void PortalShortcut::refuse() {
    state_ = State::refused;
    session_.clear();
    handle_.clear();
    call_.reset();
    callbacks_.refused();
}

// ---- org.freedesktop.portal.Request ----

void PortalShortcut::request(QDBusMessage call, QVariantMap options, Granted granted,
                             std::function<void()> denied) {
    granted_ = std::move(granted);
    denied_ = std::move(denied);
    const QString token = QStringLiteral("noonward_%1_%2").arg(wish_.id).arg(++questions_);
    QString sender = bus_.connection().baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    awaitResponse(path + QStringLiteral("/request/") + sender + QLatin1Char('/') + token);
    options.insert(QStringLiteral("handle_token"), token);
    call << options;
    call_ = std::make_unique<QDBusPendingCallWatcher>(bus_.connection().asyncCall(call));
    QObject::connect(call_.get(), &QDBusPendingCallWatcher::finished, &activations_,
                     [this](QDBusPendingCallWatcher* answered) {
                         call_.release()->deleteLater();
                         takeHandle(answered->reply());
                     });
}

void PortalShortcut::awaitResponse(const QString& handle) {
    handle_ = handle;
    responses_.listen(bus_.connection(), handle_, QStringLiteral("org.freedesktop.portal.Request"),
                      QStringLiteral("Response"), portal);
}

// Older portals choose the handle themselves.
void PortalShortcut::takeHandle(const QDBusMessage& answer) {
    if (handle_.isEmpty()) return;  // the response was there before the answer
    const QString handle = handleIn(answer.arguments().value(0), QStringLiteral("/request"));
    if (answer.type() != QDBusMessage::ReplyMessage || handle.isEmpty()) return denyRequest();
    if (handle != handle_) awaitResponse(handle);
}

void PortalShortcut::denyRequest() {
    handle_.clear();
    call_.reset();
    const auto next = std::exchange(denied_, nullptr);
    next();
}

void PortalShortcut::takeResponse(const QDBusMessage& response) {
    if (handle_.isEmpty() || response.path() != handle_) return;
    handle_.clear();
    if (response.signature() != QLatin1String("ua{sv}") || response.arguments()[0].toUInt() != 0)
        return denyRequest();
    const Granted next = std::exchange(granted_, nullptr);
    next(qdbus_cast<QVariantMap>(response.arguments()[1]));
}

}  // namespace noonward
