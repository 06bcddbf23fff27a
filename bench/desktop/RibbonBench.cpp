// The ribbon of six places at two pixels a point: building and laying out its tree, painting it
// whole, painting what a moved pointer changes, and turning the picture into a file.

#include <QBuffer>
#include <QGuiApplication>
#include <cstring>

#include "Ratios.h"
#include "RibbonFixture.h"
#include "kit/Damage.h"
#include "kit/OffScreen.h"
#include "kit/Painting.h"
#include "kit/Png.h"

namespace noonward::bench {
namespace {

constexpr double pixelsPerPoint = 2;

void build(benchmark::State& state) {
    RibbonFixture fixture;
    for (auto _ : state)
        benchmark::DoNotOptimize(fixture.placed());
}
BENCHMARK(build);

void paintInto(QImage& image, const kit::Placed& placed, kit::Tiles& tiles, const QRectF& clip) {
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(pixelsPerPoint, pixelsPerPoint);
    painter.setClipRect(clip);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(clip, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    kit::Painting painting(painter, tiles, clip);
    painting.paint(placed);
}

void paintWhole(benchmark::State& state) {
    RibbonFixture fixture;
    const kit::Placed placed = fixture.placed();
    kit::Tiles tiles;
    QImage image = kit::paintOffScreen(placed, pixelsPerPoint, tiles);
    for (auto _ : state)
        paintInto(image, placed, tiles, placed.rect);
}
BENCHMARK(paintWhole);

// What the hover outline leaves behind and covers when it moves by a column.
void paintTwoColumns(benchmark::State& state) {
    RibbonFixture fixture;
    fixture.store.hoverCol = 9;
    const kit::Placed placed = fixture.placed();
    kit::Tiles tiles;
    QImage image = kit::paintOffScreen(placed, pixelsPerPoint, tiles);
    const QRectF changed(342 + 8 * 32 - 2, 6 + 36, 68, 400);
    for (auto _ : state)
        paintInto(image, placed, tiles, changed);
}
BENCHMARK(paintTwoColumns);

// A frame of the panel on its way out of the notch.
void openingFrame(benchmark::State& state) {
    RibbonFixture fixture;
    const kit::Placed placed =
        kit::layOut(fixture.panel.body(Scheme::dark).scale(0.97, 0.9, kit::topCentre).opacity(0.5),
                    rootEnvironment());
    kit::Tiles tiles;
    QImage image = kit::paintOffScreen(placed, pixelsPerPoint, tiles);
    for (auto _ : state)
        paintInto(image, placed, tiles, placed.rect);
}
BENCHMARK(openingFrame);

// All that a pointer on its way over the hours costs: the new tree, what differs, its painting.
void hoverStep(benchmark::State& state) {
    RibbonFixture fixture;
    kit::Placed shown = fixture.placed();
    kit::Tiles tiles;
    QImage image = kit::paintOffScreen(shown, pixelsPerPoint, tiles);
    int column = 0;
    for (auto _ : state) {
        column = (column + 1) % 24;
        fixture.store.hoverCol = column;
        kit::Placed next = fixture.placed();
        for (const QRectF& rect : kit::damage(shown, next))
            paintInto(image, next, tiles, rect.toAlignedRect());
        shown = std::move(next);
    }
}
BENCHMARK(hoverStep);

void copyPicture(benchmark::State& state) {
    RibbonFixture fixture;
    const QImage image = fixture.picture();
    std::vector<uchar> copy(static_cast<std::size_t>(image.sizeInBytes()));
    for (auto _ : state) {
        std::memcpy(copy.data(), image.constBits(), copy.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copyPicture);

void png(benchmark::State& state) {
    RibbonFixture fixture;
    const QImage image = fixture.picture();
    for (auto _ : state)
        benchmark::DoNotOptimize(kit::encodePng(image));
    state.counters["bytes"] = static_cast<double>(kit::encodePng(image).size());
}
BENCHMARK(png)->Unit(benchmark::kMillisecond);

void qtPng(benchmark::State& state) {
    RibbonFixture fixture;
    const QImage image = fixture.picture();
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(qtPng)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    noonward::registerFonts();
    return noonward::bench::run(
        argc, argv,
        {{"picture as PNG", "png", "qtPng", "QImage::save", 0.25},
         {"whole repaint", "paintWhole", "copyPicture", "memcpy of the picture", 3000.0 / 180},
         {"hover repaint", "paintTwoColumns", "copyPicture", "memcpy of the picture",
          500.0 / 180}});
}
