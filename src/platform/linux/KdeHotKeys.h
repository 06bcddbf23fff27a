#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <memory>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/linux/MessageBus.h"

namespace noonward {

/// Keys by KDE's own service for them (org.kde.kglobalaccel), which asks nobody: KDE's portal opens
/// the system settings whenever a program asks it for a key. The user can change or remove the key
/// there, and the service remembers that.
class KdeHotKeys final : public HotKeys {
 public:
    explicit KdeHotKeys(SessionBus& bus);  ///< which must outlive this object

    /// Whether the session is one of KDE, by XDG_CURRENT_DESKTOP (Desktop Entry, freedesktop.org).
    static bool isTheirs(const char* currentDesktop);

    /// `registered` as soon as the service is asked; `unavailable` without a bus.
    Outcome registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                        std::function<void(std::uint32_t id)> pressed) override;

 private:
    struct Key {
        int code;  // as the toolkit writes it, modifiers included
        std::uint32_t id;
        std::function<void(std::uint32_t id)> pressed;
    };

    void ask(const Key& key);
    void takePress(const QDBusMessage& signal);

    SessionBus& bus_;
    std::vector<Key> keys_;
    BusListener presses_;
    QDBusServiceWatcher owner_;
};

}  // namespace noonward
