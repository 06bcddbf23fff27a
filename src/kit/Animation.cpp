#include "kit/Animation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kit {
namespace {

// What is left of a change when it counts as done: under a third of a pixel for the largest glides.
constexpr double unseen = 0.001;

double springProgress(double seconds, double response, double damping) {
    const double frequency = 2 * std::numbers::pi / response;
    const double decay = std::exp(-damping * frequency * seconds);
    if (damping >= 1) return 1 - decay * (1 + frequency * seconds);
    const double damped = frequency * std::sqrt(1 - damping * damping);
    return 1 - decay * (std::cos(damped * seconds) +
                        damping * frequency / damped * std::sin(damped * seconds));
}

// The curve of control points (0.42, 0) and (1, 1) at horizontal position `x`.
double easeInProgress(double x) {
    double from = 0;
    double to = 1;
    double s = x;
    for (int i = 0; i < 40; ++i) {
        const double rest = 1 - s;
        const double at = 3 * rest * rest * s * 0.42 + 3 * rest * s * s + s * s * s;
        (at < x ? from : to) = s;
        s = (from + to) / 2;
    }
    return 3 * (1 - s) * s * s + s * s * s;
}

}  // namespace

Curve Curve::spring(double response, double dampingFraction) {
    return {Kind::spring, response, std::min(dampingFraction, 1.0)};
}

Curve Curve::easeIn(double duration) {
    return {Kind::easeIn, duration, 1};
}

double Curve::progress(double seconds) const {
    if (seconds <= 0) return 0;
    if (seconds >= length()) return 1;
    return kind_ == Kind::spring ? springProgress(seconds, time_, damping_)
                                 : easeInProgress(seconds / time_);
}

// Half an oscillation after the start.
double Curve::overshoot() const {
    if (kind_ == Kind::easeIn || damping_ >= 1) return 0;
    return std::exp(-damping_ * std::numbers::pi / std::sqrt(1 - damping_ * damping_));
}

double Curve::length() const {
    if (kind_ == Kind::easeIn) return time_;
    // The envelope of the critically damped spring falls more slowly by its linear factor.
    const double lengths = damping_ < 1 ? -std::log(unseen) / damping_ : 9.3;
    return lengths * time_ / (2 * std::numbers::pi);
}

Animations::Member::Member(Animations& animations) : animations_(animations) {
    animations_.members_.push_back(this);
}

Animations::Member::~Member() {
    std::erase(animations_.members_, this);
}

void Animations::withAnimation(const Curve& curve, const std::function<void()>& changes) {
    settleAll(std::nullopt);
    changes();
    settleAll(enabled_ ? std::optional(curve) : std::nullopt);
}

void Animations::settleAll(const std::optional<Curve>& curve) {
    // Settling may bring new members.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (std::size_t i = 0; i < members_.size(); ++i)
        members_[i]->settle(curve);
}

}  // namespace kit
