#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QRectF>
#include <cmath>
#include <utility>

/// Reading positions and colours back from what is painted.
namespace noonward::test {

struct Rgb {
    double r, g, b;
};

constexpr Rgb hex(unsigned value) {
    return {static_cast<double>(value >> 16 & 0xFF), static_cast<double>(value >> 8 & 0xFF),
            static_cast<double>(value & 0xFF)};
}
constexpr Rgb over(Rgb top, double opacity, Rgb below) {
    return {top.r * opacity + below.r * (1 - opacity), top.g * opacity + below.g * (1 - opacity),
            top.b * opacity + below.b * (1 - opacity)};
}

/// A painting at two pixels a point, asked in points.
class Picture {
 public:
    explicit Picture(QImage image) : image_(std::move(image)) {}

    testing::AssertionResult is(double x, double y, Rgb wanted, double tolerance = 1.01) const {
        const QColor found = at(x, y);
        if (near(found, wanted, tolerance)) return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "at " << x << ", " << y << ": found " << found.red() << ' ' << found.green()
               << ' ' << found.blue() << ", wanted " << wanted.r << ' ' << wanted.g << ' '
               << wanted.b;
    }

    /// Where the first stretch of a colour begins and ends on a horizontal line, in points.
    std::pair<double, double> across(Rgb colour, double y, double fromX, double untilX) const {
        return run(fromX, untilX, [&](double x) { return near(at(x, y), colour, 3); });
    }
    std::pair<double, double> down(Rgb colour, double x, double fromY, double untilY) const {
        return run(fromY, untilY, [&](double y) { return near(at(x, y), colour, 3); });
    }

    /// Whether a colour comes in a part of it.
    bool has(Rgb colour, const QRectF& part) const {
        for (double y = part.top(); y < part.bottom(); y += 0.5) {
            if (across(colour, y, part.left(), part.right()).first < part.right()) return true;
        }
        return false;
    }

    double width() const { return image_.width() / 2.0; }
    double height() const { return image_.height() / 2.0; }
    int alpha(double x, double y) const { return at(x, y).alpha(); }

 private:
    QColor at(double x, double y) const {
        return image_.pixelColor(static_cast<int>(std::floor(x * 2)),
                                 static_cast<int>(std::floor(y * 2)));
    }
    static bool near(const QColor& found, Rgb wanted, double tolerance) {
        return std::abs(found.red() - wanted.r) <= tolerance &&
               std::abs(found.green() - wanted.g) <= tolerance &&
               std::abs(found.blue() - wanted.b) <= tolerance;
    }
    template <typename Test>
    static std::pair<double, double> run(double from, double until, Test test) {
        while (from < until && !test(from + 0.25))
            from += 0.5;
        double end = from;
        while (end < until && test(end + 0.25))
            end += 0.5;
        return {from, end};
    }

    QImage image_;
};

}  // namespace noonward::test
