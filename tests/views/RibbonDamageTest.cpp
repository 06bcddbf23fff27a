#include <gtest/gtest.h>

#include <QPainter>
#include <random>

#include "kit/Damage.h"
#include "kit/Painting.h"
#include "views/RibbonScene.h"

namespace noonward::test {
namespace {

// What a window keeps of its picture when only what is damaged is painted anew.
class Repainted {
 public:
    explicit Repainted(double scale) : scale_(scale) {}

    void show(const kit::Placed& next) {
        if (image_.isNull()) {
            image_ = kit::paintOffScreen(next, scale_, tiles_);
        } else {
            QPainter painter(&image_);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            painter.scale(scale_, scale_);
            for (const QRectF& rect : kit::damage(shown_, next)) {
                // Whole points, as windows are updated.
                const QRect piece = rect.toAlignedRect();
                area_ += static_cast<double>(piece.width()) * piece.height();
                painter.setClipRect(piece);
                painter.setCompositionMode(QPainter::CompositionMode_Source);
                painter.fillRect(piece, Qt::transparent);
                painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
                kit::Painting painting(painter, tiles_, piece);
                painting.paint(next);
            }
        }
        shown_ = next;
    }
    const QImage& image() const { return image_; }
    double takeArea() { return std::exchange(area_, 0); }

 private:
    double scale_;
    double area_ = 0;
    kit::Tiles tiles_;
    kit::Placed shown_;
    QImage image_;
};

// The largest difference of any channel of any pixel.
int difference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return 256;
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        const uchar* a = one.constScanLine(y);
        const uchar* b = other.constScanLine(y);
        for (int x = 0; x < one.width() * 4; ++x)
            most = std::max(most, std::abs(int(a[x]) - int(b[x])));
    }
    return most;
}

TEST(RibbonDamage, PaintingWhatIsDamagedIsPaintingAll) {
    for (const double scale : {1.0, 2.0}) {
        RibbonScene scene({.config = sixPlaces(), .options = {.solid = false}});
        Store& store = *scene.store;
        std::mt19937 random(7);
        const auto any = [&](int below) {
            return static_cast<int>(random() % static_cast<unsigned>(below));
        };
        Repainted window(scale);
        window.show(scene.placed());
        for (int step = 0; step < 30; ++step) {
            const kit::Placed before = scene.placed();
            switch (any(8)) {
                case 0:
                    store.hoverCol = any(24);
                    break;
                case 1:
                    store.propose(any(24));
                    break;
                case 2:
                    store.step(5 * (any(7) - 3));
                    break;
                case 3:
                    store.backToNow();
                    break;
                case 4:
                    store.changeDay(any(3) - 1);
                    break;
                case 5:
                    store.flash = any(2) ? std::optional<std::string>("Copied") : std::nullopt;
                    break;
                case 6:
                    store.setDuration(Store::durations.at(static_cast<std::size_t>(any(4))));
                    break;
                case 7:
                    store.startTyping("7:30");
                    store.finishTyping(any(2));
                    break;
            }
            const kit::Placed after = scene.placed();
            if (after.rect != before.rect) window = Repainted(scale);  // the window is resized
            window.show(after);
            kit::Tiles tiles;
            // The glow of the now mark is blurred in a layer that may begin elsewhere.
            ASSERT_LE(difference(window.image(), kit::paintOffScreen(after, scale, tiles)), 8)
                << "step " << step << " at scale " << scale;
        }
    }
}

TEST(RibbonDamage, AHoverStepTouchesLittle) {
    RibbonScene scene({.config = sixPlaces(), .options = {.solid = false}});
    Repainted window(1);
    scene.store->hoverCol = 5;
    window.show(scene.placed());
    window.takeArea();
    window.show(scene.placed());
    EXPECT_EQ(window.takeArea(), 0) << "a new tree that looks the same";
    scene.store->hoverCol = 6;
    const kit::Placed next = scene.placed();
    window.show(next);
    const double area = window.takeArea();
    EXPECT_GT(area, 0);
    // Two columns of cells, six headers, one line of the bar.
    EXPECT_LT(area, next.rect.width() * next.rect.height() / 6);
}

}  // namespace
}  // namespace noonward::test
