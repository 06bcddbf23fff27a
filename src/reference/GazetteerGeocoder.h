#pragma once

#include <functional>

#include "reference/Gazetteer.h"
#include "reference/Geocoder.h"

namespace noonward {

/// Finds places in a gazetteer: without any service to ask, so that nobody learns what was typed.
class GazetteerGeocoder final : public Geocoder {
 public:
    /// Runs work in a later turn of the main loop.
    using Post = std::function<void(std::function<void()>)>;

    /// The gazetteer must outlive it.
    explicit GazetteerGeocoder(Post post, const Gazetteer& gazetteer = Gazetteer::builtIn());

    /// Never fails. `done` is called even if this is gone by then.
    void lookUp(std::string text, Done done) override;

 private:
    Post post_;
    const Gazetteer& gazetteer_;
};

}  // namespace noonward
