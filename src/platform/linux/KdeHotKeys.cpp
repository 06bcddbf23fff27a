#include "platform/linux/KdeHotKeys.h"

#include <QDBusArgument>
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/linux/KeyCodes.h"

namespace noonward {
namespace {

const QString service = QStringLiteral("org.kde.kglobalaccel");
const QString component = QStringLiteral("noonward");

// The flags of setShortcut: the key that the action has by default, and the one that it has unless
// the user has chosen another.
enum Flag : std::uint32_t { present = 2, byDefault = 8 };

// As Qt writes keys, in which letters have the codes of their capitals.
int codeOf(char letter, std::uint32_t modifiers) {
    const int control = modifiers & HotKeys::control ? static_cast<int>(Qt::ControlModifier) : 0;
    const int option = modifiers & HotKeys::option ? static_cast<int>(Qt::AltModifier) : 0;
    return letter | control | option;
}

QString actionOf(std::uint32_t id) {
    return QStringLiteral("key%1").arg(id);
}

// Component and action, each by its name and by what the user reads.
QStringList description(std::uint32_t id) {
    return {component, actionOf(id), QStringLiteral("Noonward"),
            QStringLiteral("Open or close Noonward")};
}

QDBusMessage call(const char* member, std::uint32_t id) {
    auto message = QDBusMessage::createMethodCall(service, QStringLiteral("/kglobalaccel"),
                                                  QStringLiteral("org.kde.KGlobalAccel"),
                                                  QString::fromLatin1(member));
    message << description(id);
    return message;
}

}  // namespace

KdeHotKeys::KdeHotKeys(SessionBus& bus)
    : bus_(bus),
      presses_([this](const QDBusMessage& signal) { takePress(signal); }),
      owner_(service, bus.connection(), QDBusServiceWatcher::WatchForRegistration) {
    presses_.listen(bus_.connection(), QStringLiteral("/component/") + component,
                    QStringLiteral("org.kde.kglobalaccel.Component"),
                    QStringLiteral("globalShortcutPressed"), service);
    // One that is started anew has to be told again which keys are in use.
    QObject::connect(&owner_, &QDBusServiceWatcher::serviceRegistered, &owner_, [this] {
        for (const Key& key : keys_)
            ask(key);
    });
}

bool KdeHotKeys::isTheirs(const char* currentDesktop) {
    std::string_view rest = currentDesktop ? currentDesktop : "";
    while (!rest.empty()) {
        const std::size_t colon = rest.find(':');
        if (rest.substr(0, colon) == "KDE") return true;
        rest = colon == std::string_view::npos ? std::string_view() : rest.substr(colon + 1);
    }
    return false;
}

HotKeys::Outcome KdeHotKeys::registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                                         std::function<void(std::uint32_t id)> pressed) {
    const auto letter = letterOf(keyCode);
    if (!letter || !bus_.connection().isConnected()) return Outcome::unavailable;
    keys_.push_back({codeOf(*letter, modifiers), id, std::move(pressed)});
    ask(keys_.back());
    return Outcome::registered;
}

void KdeHotKeys::ask(const Key& key) {
    bus_.connection().send(call("doRegister", key.id));
    const QVariant codes = QVariant::fromValue(QList<int>{key.code});
    for (const Flag flag : {byDefault, present}) {
        QDBusMessage message = call("setShortcut", key.id);
        message << codes << static_cast<std::uint32_t>(flag);
        bus_.connection().send(message);
    }
}

void KdeHotKeys::takePress(const QDBusMessage& signal) {
    if (!signal.signature().startsWith(QLatin1String("ss"))) return;
    const QVariantList arguments = signal.arguments();
    if (arguments[0].toString() != component) return;
    const auto key = std::find_if(keys_.begin(), keys_.end(), [&](const Key& each) {
        return actionOf(each.id) == arguments[1].toString();
    });
    if (key == keys_.end()) return;
    const auto pressed = key->pressed;
    pressed(key->id);
}

}  // namespace noonward
