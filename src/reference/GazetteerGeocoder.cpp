#include "reference/GazetteerGeocoder.h"

#include <utility>

namespace noonward {

GazetteerGeocoder::GazetteerGeocoder(Post post, const Gazetteer& gazetteer)
    : post_(std::move(post)), gazetteer_(gazetteer) {}

// The search takes less than a frame does: only the answer waits.
void GazetteerGeocoder::lookUp(std::string text, Done done) {
    post_([found = gazetteer_.search(text), done = std::move(done)] { done(found); });
}

}  // namespace noonward
