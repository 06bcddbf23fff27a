#pragma once

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

/// Reads the setting: `TZ` where it is set and names a known zone (a leading ":" dropped), else
/// where /etc/localtime points, else /etc/timezone, else "UTC".
class ComputerZone final : public SystemZone {
 public:
    TimeZone current() const override;
    void resetSystemTimeZone() override;

 private:
    mutable std::optional<TimeZone> held_;
};

}  // namespace noonward
