#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "reference/Geocoder.h"

namespace noonward::test {

/// A geocoder that answers when it is told to.
class FakeGeocoder final : public Geocoder {
 public:
    void lookUp(std::string text, Done done) override {
        asked_.push_back(std::move(text));
        waiting_.push_back(std::move(done));
    }

    /// The texts that were asked for, in order.
    const std::vector<std::string>& asked() const { return asked_; }

    void answer(std::size_t question, std::vector<Placemark> placemarks) {
        waiting_.at(question)(std::move(placemarks));
    }
    void fail(std::size_t question) { waiting_.at(question)(std::nullopt); }

 private:
    std::vector<std::string> asked_;
    std::vector<Done> waiting_;
};

}  // namespace noonward::test
