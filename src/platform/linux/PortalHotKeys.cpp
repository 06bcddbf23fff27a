#include "platform/linux/PortalHotKeys.h"

#include <utility>

#include "platform/linux/KeyCodes.h"

namespace noonward {
namespace {

// Letters have one name each, in lower case.
QString triggerOf(char letter, std::uint32_t modifiers) {
    QString trigger;
    if (modifiers & HotKeys::control) trigger += QStringLiteral("CTRL+");
    if (modifiers & HotKeys::option) trigger += QStringLiteral("ALT+");
    return trigger + QChar::fromLatin1(letter).toLower();
}

}  // namespace

struct PortalHotKeys::Key {
    int keyCode = 0;
    std::uint32_t modifiers = 0;
    std::uint32_t id = 0;
    std::function<void(std::uint32_t)> pressed;
    bool isTakenOtherwise = false;
    std::unique_ptr<PortalShortcut> shortcut = nullptr;
};

PortalHotKeys::PortalHotKeys(SessionBus& bus, HotKeys* otherwise)
    : bus_(bus), otherwise_(otherwise) {}

HotKeys::Outcome PortalHotKeys::registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                                            std::function<void(std::uint32_t id)> pressed) {
    const auto letter = letterOf(keyCode);
    if (!letter) return Outcome::unavailable;
    const auto key = std::make_shared<Key>(Key{keyCode, modifiers, id, std::move(pressed)});
    keys_.push_back(key);
    if (!bus_.connection().isConnected()) return takeOtherwise(key);
    key->shortcut = std::make_unique<PortalShortcut>(
        bus_,
        PortalShortcut::Wish{QStringLiteral("key%1").arg(id),
                             QStringLiteral("Open or close Noonward"),
                             triggerOf(*letter, modifiers)},
        PortalShortcut::Callbacks{[key = key.get()] { key->pressed(key->id); },
                                  [this, held = std::weak_ptr(key)] {
                                      if (const auto refused = held.lock()) takeOtherwise(refused);
                                  }});
    return Outcome::registered;
}

// It stays taken for the rest of the process, but counts only while the compositor tells nothing:
// one press is one.
HotKeys::Outcome PortalHotKeys::takeOtherwise(const std::shared_ptr<Key>& key) {
    if (!otherwise_) return Outcome::unavailable;
    if (key->isTakenOtherwise) return Outcome::registered;
    const auto pressed = [held = std::weak_ptr(key)](std::uint32_t id) {
        const auto known = held.lock();
        if (known && !(known->shortcut && known->shortcut->isBound())) known->pressed(id);
    };
    const Outcome outcome = otherwise_->registerKey(key->keyCode, key->modifiers, key->id, pressed);
    key->isTakenOtherwise = outcome == Outcome::registered;
    return outcome;
}

}  // namespace noonward
