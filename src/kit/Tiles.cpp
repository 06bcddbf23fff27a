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

const QImage& Tiles::whole(const std::shared_ptr<const Node>& view, const QSize& pixels,
                           const std::function<QImage()>& make) {
    if (whole_.view != view || whole_.pixels != pixels) whole_ = {view, pixels, make()};
    return whole_.image;
}

}  // namespace kit
