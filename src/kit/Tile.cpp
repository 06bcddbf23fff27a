#include "kit/Tile.h"

#include <cmath>

#include "kit/Painting.h"

namespace kit {
namespace {

class TileNode final : public Node {
 public:
    TileNode(std::string key, QSizeF size, Description says, std::function<View()> build)
        : key_(std::move(key)), size_(size), said_(std::move(says)), build_(std::move(build)) {}

    QSizeF measure(const Proposal&, const Environment&) const override { return size_; }

    void paint(const Placed& self, Painting& painting) const override {
        const double scale = painting.scale();
        const QSizeF pixels = size_ * scale;
        const bool whole = std::floor(pixels.width()) == pixels.width() &&
                           std::floor(pixels.height()) == pixels.height() &&
                           painting.painter().deviceTransform().type() <= QTransform::TxScale;
        if (!whole) {
            // Between pixels a kept picture would blur: draw the view itself.
            painting.paint(layOutAt(self));
            return;
        }
        const QImage& image = painting.tiles().get(key_ + '@' + std::to_string(scale),
                                                   [&] { return draw(self, painting, pixels); });
        const QRectF at(painting.aligned(self.rect).topLeft(), size_);
        painting.painter().drawImage(at, image);
    }

    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const TileNode*>(&other);
        return same && same->key_ == key_ && same->size_ == size_;
    }

    std::string description() const override { return "tile \"" + said_.name + "\" " + key_; }

    const Description* accessible() const override { return &said_; }

 private:
    Placed layOutAt(const Placed& self) const {
        Placed holder;
        holder.id = self.id;
        holder.add(0, build_(), self.rect, self.environment);
        return holder.children.front();
    }

    QImage draw(const Placed& self, Painting& painting, const QSizeF& pixels) const {
        QImage image(pixels.toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHints(painting.painter().renderHints());
        painter.scale(painting.scale(), painting.scale());
        painter.translate(-self.rect.topLeft());
        Painting inside(painter, painting.tiles(), self.rect);
        inside.paint(layOutAt(self));
        return image;
    }

    std::string key_;
    QSizeF size_;
    Description said_;
    std::function<View()> build_;
};

}  // namespace

View tile(std::string key, QSizeF size, Description says, std::function<View()> build) {
    return View(
        std::make_shared<TileNode>(std::move(key), size, std::move(says), std::move(build)));
}

}  // namespace kit
