#pragma once

namespace noonward {

/// What the user feels and hears.
class Feedback {
 public:
    virtual ~Feedback() = default;
    virtual void levelChange() = 0;         ///< a tap under the finger, where hardware has one
    virtual void click(double volume) = 0;  ///< from its start again; volume 0 to 1
};

}  // namespace noonward
