#pragma once

#include <QRect>
#include <cstdint>
#include <vector>

namespace noonward::test {

/// What somebody in front of the screen sees.
class Sight {
 public:
    virtual ~Sight() = default;

    /// 0xRRGGBB; black off the screen
    std::uint32_t colour(QPoint at);
    /// Whether there is anything at least that bright.
    bool isBright(const QRect& where, std::uint8_t least);

 protected:
    /// Four bytes a pixel: blue, green, red and another; nothing where any of it is off the screen.
    virtual std::vector<std::uint8_t> pixels(const QRect& where) = 0;
};

}  // namespace noonward::test
