#pragma once

#include <chrono>

namespace noonward {

/// A moment, the same everywhere on earth; microseconds since 1970-01-01 00:00 UTC, without leap
/// seconds (POSIX time).
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

using std::chrono::hours;
using std::chrono::microseconds;
using std::chrono::minutes;
using std::chrono::seconds;

/// A length in hours as a fraction, for the computations that are defined in fractions of an hour.
using HoursFraction = std::chrono::duration<double, std::ratio<3600>>;

/// `to - from` in hours.
inline double hoursBetween(Instant from, Instant to) {
    return std::chrono::duration_cast<HoursFraction>(to - from).count();
}

/// Where the program gets the current time. Tests set and advance it.
class Clock {
 public:
    virtual ~Clock() = default;
    virtual Instant now() const = 0;
};

/// The computer's own clock.
class SystemClock final : public Clock {
 public:
    Instant now() const override {
        return std::chrono::floor<microseconds>(std::chrono::system_clock::now());
    }
};

}  // namespace noonward
