#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace kit {

/// How a change spreads over time, from 0 at its beginning to 1.
class Curve {
 public:
    /// A damped oscillator of angular frequency 2π / `response` (seconds), starting at rest. Below
    /// a `dampingFraction` of 1 it overshoots; above counts as 1.
    static Curve spring(double response, double dampingFraction);
    /// Starts slowly and ends at full speed after `duration` seconds: the cubic Bézier curve of
    /// CSS's `ease-in`.
    static Curve easeIn(double duration);

    double progress(double seconds) const;
    /// How far beyond 1 it goes at most.
    double overshoot() const;
    /// Seconds after which nothing of it can be seen any more.
    double length() const;

    bool operator==(const Curve&) const = default;

 private:
    enum class Kind { spring, easeIn };
    Curve(Kind kind, double time, double damping) : kind_(kind), time_(time), damping_(damping) {}

    Kind kind_;
    double time_;
    double damping_;
};

inline Curve spring(double response, double dampingFraction) {
    return Curve::spring(response, dampingFraction);
}
inline Curve easeIn(double duration) {
    return Curve::easeIn(duration);
}

/// Lets changes of what views show happen animated. Main thread only; outlives its members.
class Animations {
 public:
    /// Whoever shows views.
    class Member {
     public:
        explicit Member(Animations& animations);
        virtual ~Member();
        Member(const Member&) = delete;
        Member& operator=(const Member&) = delete;

        /// Takes up at once what has changed since it last did, gliding there along `curve`, or
        /// jumping without one.
        virtual void settle(const std::optional<Curve>& curve) = 0;

     private:
        Animations& animations_;
    };

    /// Runs `changes`: what they change on screen glides along `curve`, what was changed before
    /// jumps. Where animations are off everything jumps.
    void withAnimation(const Curve& curve, const std::function<void()>& changes);

    void setEnabled(bool enabled) { enabled_ = enabled; }
    bool enabled() const { return enabled_; }

 private:
    void settleAll(const std::optional<Curve>& curve);

    std::vector<Member*> members_;
    bool enabled_ = true;
};

}  // namespace kit
