#include "kit/Symbol.h"

#include <QFile>
#include <QSvgRenderer>
#include <cmath>

#include "kit/Painting.h"

namespace kit {
namespace {

// The drawings carry a margin of their own inside the box: this much more than the text's size
// makes a symbol look as large as the letters beside it.
constexpr double sideOfFontSize = 1.25;

QImage drawSymbol(const char* resource, int pixels, Colour colour) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFile file(QString::fromUtf8(resource));
    if (!file.open(QIODevice::ReadOnly)) return image;
    QSvgRenderer renderer(file.readAll().replace("currentColor", "#000"));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour.qcolor());
    return image;
}

class SymbolNode final : public Node {
 public:
    explicit SymbolNode(SymbolSource source) : source_(source) {}

    QSizeF measure(const Proposal&, const Environment& env) const override {
        const double side = std::round(env.font.size * sideOfFontSize);
        return {side, side};
    }

    // Letters stand a little above the middle of their line; so must a symbol on their baseline.
    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return size.height() / 2 + env.font.size * 0.36;
    }

    void paint(const Placed& self, Painting& painting) const override {
        const QRectF rect = painting.aligned(self.rect);
        const int pixels = static_cast<int>(std::lround(rect.width() * painting.scale()));
        if (pixels <= 0) return;
        const Colour& colour = self.environment.colour;
        const std::string key = std::string("symbol ") + source_.resource + ' ' +
                                std::to_string(pixels) + ' ' +
                                colour.qcolor().name(QColor::HexArgb).toStdString();
        const QImage& image =
            painting.tiles().get(key, [&] { return drawSymbol(source_.resource, pixels, colour); });
        painting.painter().drawImage(rect, image);
    }

    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const SymbolNode*>(&other);
        return same && std::string_view(same->source_.resource) == source_.resource;
    }

    std::string description() const override { return std::string("symbol ") + source_.resource; }

 private:
    SymbolSource source_;
};

}  // namespace

View symbol(SymbolSource source) {
    return View(std::make_shared<SymbolNode>(source));
}

}  // namespace kit
