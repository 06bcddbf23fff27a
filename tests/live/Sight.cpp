#include "live/Sight.h"

#include <algorithm>

namespace noonward::test {

std::uint32_t Sight::colour(QPoint at) {
    const auto bytes = pixels({at, QSize(1, 1)});
    if (bytes.empty()) return 0;
    return static_cast<std::uint32_t>(bytes.at(0) | bytes.at(1) << 8 | bytes.at(2) << 16);
}

bool Sight::isBright(const QRect& where, std::uint8_t least) {
    const auto bytes = pixels(where);
    for (std::size_t i = 0; i + 3 < bytes.size(); i += 4) {
        if (std::min({bytes[i], bytes[i + 1], bytes[i + 2]}) >= least) return true;
    }
    return false;
}

}  // namespace noonward::test
