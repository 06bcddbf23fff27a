#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace noonward {

/// A place that a geocoder has found for a text.
struct Placemark {
    std::optional<std::string> locality;
    std::optional<std::string> name;
    std::optional<std::string> country;
    std::optional<std::string> zone;    ///< time-zone identifier
    std::optional<std::string> region;  ///< what tells it from its namesakes in the country
};

/// A service that finds places by name.
class Geocoder {
 public:
    /// The places, best first; nothing when the look-up failed.
    using Done = std::function<void(std::optional<std::vector<Placemark>>)>;

    virtual ~Geocoder() = default;
    /// Calls `done` once, on the main thread, after this has returned.
    virtual void lookUp(std::string text, Done done) = 0;
};

}  // namespace noonward
