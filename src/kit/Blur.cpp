#include "kit/Blur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kit {
namespace {

// One channel of a row or a column of pixels.
struct Line {
    uchar* first;
    qsizetype stride;
    int length;
};

// Replaces each value by the mean of the 2 * reach + 1 around it. `padded` is room to work in.
void boxBlur(const Line& line, int reach, std::vector<uchar>& padded) {
    const auto length = static_cast<std::size_t>(line.length);
    const auto margin = static_cast<std::size_t>(reach);
    padded.assign(length + 2 * margin + 1, 0);
    for (std::size_t i = 0; i < length; ++i) {
        padded[margin + i] = line.first[static_cast<qsizetype>(i) * line.stride];
    }
    // A division by the width, as a multiplication that is exact enough for sums of bytes.
    constexpr int fraction = 16;
    const std::uint32_t width = 2 * static_cast<std::uint32_t>(reach) + 1;
    const std::uint32_t reciprocal = ((1U << fraction) + width / 2) / width;
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < 2 * margin; ++i)
        sum += padded[i];
    for (std::size_t i = 0; i < length; ++i) {
        sum += padded[i + 2 * margin];
        const std::uint32_t mean = (sum * reciprocal + (1U << (fraction - 1))) >> fraction;
        line.first[static_cast<qsizetype>(i) * line.stride] =
            static_cast<uchar>(std::min(mean, 255U));
        sum -= padded[i];
    }
}

}  // namespace

void blur(QImage& image, double deviation) {
    // Three boxes of width w have the variance 3 (w² − 1) / 12. Sums of bytes must fit 16 bits.
    constexpr long widestReach = 120;
    const double width = std::sqrt(4 * deviation * deviation + 1);
    const int reach = static_cast<int>(std::min(std::lround((width - 1) / 2), widestReach));
    if (reach < 1) return;
    const int channels = image.depth() / 8;
    std::vector<uchar> padded;
    for (int pass = 0; pass < 3; ++pass) {
        for (int channel = 0; channel < channels; ++channel) {
            for (int y = 0; y < image.height(); ++y) {
                boxBlur({image.scanLine(y) + channel, channels, image.width()}, reach, padded);
            }
            for (int x = 0; x < image.width(); ++x) {
                boxBlur({image.bits() + std::ptrdiff_t{x} * channels + channel,
                         image.bytesPerLine(), image.height()},
                        reach, padded);
            }
        }
    }
}

}  // namespace kit
