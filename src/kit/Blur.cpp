#include "kit/Blur.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace kit {
namespace {

// A line of pixels in an image, a row or a column: four channels each, `stride` bytes apart.
struct Line {
    uchar* first;
    qsizetype stride;
    int length;
};

// Replaces each pixel by the mean of the 2 * reach + 1 around it.
void boxBlur(const Line& line, int reach, std::vector<std::array<uchar, 4>>& copy) {
    const auto at = [&line](int i) { return line.first + i * line.stride; };
    copy.resize(static_cast<std::size_t>(line.length));
    for (int i = 0; i < line.length; ++i) {
        for (std::size_t c = 0; c < 4; ++c)
            copy[static_cast<std::size_t>(i)][c] = at(i)[c];
    }
    const std::uint32_t width = 2 * static_cast<std::uint32_t>(reach) + 1;
    std::array<std::uint32_t, 4> sum{};
    const auto count = [&](int i, bool add) {
        if (i < 0 || i >= line.length) return;
        for (std::size_t c = 0; c < 4; ++c) {
            const std::uint32_t value = copy[static_cast<std::size_t>(i)][c];
            sum[c] = add ? sum[c] + value : sum[c] - value;
        }
    };
    for (int i = 0; i < reach; ++i)
        count(i, true);
    for (int i = 0; i < line.length; ++i) {
        count(i + reach, true);
        for (std::size_t c = 0; c < 4; ++c) {
            at(i)[c] = static_cast<uchar>((sum[c] + width / 2) / width);
        }
        count(i - reach, false);
    }
}

}  // namespace

void blur(QImage& image, double deviation) {
    // Three boxes of width w have the variance 3 (w² − 1) / 12.
    const double width = std::sqrt(4 * deviation * deviation + 1);
    const int reach = static_cast<int>(std::lround((width - 1) / 2));
    if (reach < 1) return;
    std::vector<std::array<uchar, 4>> copy;
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < image.height(); ++y) {
            boxBlur({image.scanLine(y), 4, image.width()}, reach, copy);
        }
        for (int x = 0; x < image.width(); ++x) {
            boxBlur({image.bits() + 4 * x, image.bytesPerLine(), image.height()}, reach, copy);
        }
    }
}

}  // namespace kit
