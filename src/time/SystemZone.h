#pragma once

#include <filesystem>
#include <optional>

#include "time/TimeZone.h"

namespace noonward {

/// The zone this computer is set to. Tests put another one in its place.
class SystemZone {
 public:
    virtual ~SystemZone() = default;
    /// Held until `resetSystemTimeZone`.
    virtual TimeZone current() const = 0;
    /// Forgets the held zone, so that the next `current` reads the system's setting anew.
    virtual void resetSystemTimeZone() = 0;
};

/// Reads the setting: `variable` (null when unset) where it names a known zone, a leading ":"
/// dropped; else where etc/localtime below `root` points; else etc/timezone; else "UTC".
TimeZone systemZone(const std::filesystem::path& root, const char* variable);

/// The setting of this computer and of the environment variable `TZ`. A reset also takes up zone
/// data that has been replaced: an update of the zones is a time at which systems tell of changes.
class ComputerZone final : public SystemZone {
 public:
    TimeZone current() const override;
    void resetSystemTimeZone() override;

 private:
    mutable std::optional<TimeZone> held_;
};

}  // namespace noonward
