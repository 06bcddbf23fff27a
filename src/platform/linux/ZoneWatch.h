#pragma once

#include <QTimer>
#include <filesystem>

#include "platform/linux/FolderWatch.h"
#include "platform/linux/MessageBus.h"
#include "time/ZoneChanges.h"

namespace noonward {

/// Changes of the system's zone: by etc/localtime and etc/timezone, however they are replaced, and
/// by what the service that sets them says (org.freedesktop.timedate1). One change, which may be
/// several steps, is told once, when it has been made.
class ZoneWatch final : public ZoneChanges {
 public:
    /// `root` is the folder that "etc" lies in. The bus must outlive this object.
    explicit ZoneWatch(SystemBus& bus, const std::filesystem::path& root = "/");

    [[nodiscard]] Subscription subscribe(std::function<void()> listener) override;

 private:
    void takeProperties(const QDBusMessage& signal);

    QTimer settling_;
    Announcer notices_;
    FolderWatch files_;
    BusListener properties_;
};

}  // namespace noonward
