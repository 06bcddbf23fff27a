#pragma once

#include <QColor>
#include <cstdint>

namespace kit {

/// An sRGB colour with opacity, each component 0 to 1.
struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    /// An opaque colour from 0xRRGGBB; higher bits are ignored.
    static constexpr Colour rgb(std::uint32_t value) {
        return {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0,
                (value & 0xFF) / 255.0, 1};
    }

    /// The same colour with its opacity multiplied.
    constexpr Colour opacity(double factor) const { return {red, green, blue, alpha * factor}; }

    QColor qcolor() const {
        return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                                static_cast<float>(blue), static_cast<float>(alpha));
    }

    constexpr bool operator==(const Colour&) const = default;
};

inline constexpr Colour white{1, 1, 1, 1};
inline constexpr Colour black{0, 0, 0, 1};
inline constexpr Colour clear{0, 0, 0, 0};

}  // namespace kit
