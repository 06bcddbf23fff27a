#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "kit/Animation.h"
#include "kit/Placed.h"

namespace kit {

/// What is on screen while views glide from one place and look to the next. Every rectangle and
/// every number of a view that keeps its identity glides; each change adds a glide of its own to
/// those still under way, so that neither position nor speed ever jumps. Times are in seconds of
/// any steady clock.
class Presentation {
 public:
    /// Takes a new target at the time `now`. Without a curve what has changed jumps, and what has
    /// not goes on gliding.
    void show(Placed target, const std::optional<Curve>& curve, double now);

    /// Where everything will end up.
    const Placed& target() const { return *target_; }

    /// What is to be seen at the time `now`, which never goes back.
    std::shared_ptr<const Placed> at(double now);

    /// Whether anything is still gliding at the time last asked for.
    bool moving() const { return !glides_.empty(); }

 private:
    /// How far behind its target a view started: four sides, then the numbers of its look.
    struct Glide {
        Curve curve;
        double start;
        std::vector<double> behind;
    };

    void compare(const Placed& before, const Placed& after, const std::optional<Curve>& curve,
                 double now);
    void jump(Id id, const std::vector<double>& changed);
    void forget(const Placed& gone);
    void forgetFinished(double now);
    Placed presented(const Placed& target, double now) const;

    std::shared_ptr<const Placed> target_ = std::make_shared<Placed>();
    std::unordered_map<Id, std::vector<Glide>> glides_;
};

}  // namespace kit
