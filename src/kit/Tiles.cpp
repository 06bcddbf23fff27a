#include "kit/Tiles.h"

namespace kit {
namespace {

// About 5 MB of hour cells at two pixels a point: every phase with every label, twice over.
constexpr std::size_t mostTiles = 256;

}  // namespace

const QImage& Tiles::get(const std::string& key, const std::function<QImage()>& make) {
    if (const auto found = images_.find(key); found != images_.end()) return found->second;
    if (images_.size() >= mostTiles) images_.clear();
    return images_.emplace(key, make()).first->second;
}

}  // namespace kit
