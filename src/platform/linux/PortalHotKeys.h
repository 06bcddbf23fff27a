#pragma once

#include <memory>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/linux/PortalShortcut.h"

namespace noonward {

/// Keys for inside a Wayland compositor, where an X server hears of keys only while they go to one
/// of its windows. The compositor is asked for each by its portal; where it gives none, the key is
/// taken from the X server after all: better in some windows than in none.
class PortalHotKeys final : public HotKeys {
 public:
    /// `otherwise` is null without an X server. Both must outlive this object.
    PortalHotKeys(SessionBus& bus, HotKeys* otherwise);

    /// `registered` as soon as the compositor is asked; without a bus, what comes of the X server,
    /// or `unavailable`.
    Outcome registerKey(int keyCode, std::uint32_t modifiers, std::uint32_t id,
                        std::function<void(std::uint32_t id)> pressed) override;

 private:
    struct Key;
    Outcome takeOtherwise(const std::shared_ptr<Key>& key);

    SessionBus& bus_;
    HotKeys* otherwise_;
    std::vector<std::shared_ptr<Key>> keys_;
};

}  // namespace noonward
