#include "platform/linux/NotchedLaptops.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "base/ReadFile.h"
#include "base/Unicode.h"

namespace noonward {
namespace {

constexpr std::size_t longest = 4096;

// The strip is what is left above a picture of 16:10.
constexpr NotchedDisplay laptop13{{2560, 1664}, 64, 328};
constexpr NotchedDisplay laptop14{{3024, 1964}, 74, 372};
constexpr NotchedDisplay laptop15{{2880, 1864}, 64, 328};
constexpr NotchedDisplay laptop16{{3456, 2234}, 74, 372};

struct Model {
    std::string_view name;  // of the device tree, or of DMI
    const NotchedDisplay& display;
};
constexpr std::array models{
    Model{"apple,j413", laptop13},  Model{"Mac14,2", laptop13},
    Model{"apple,j314s", laptop14}, Model{"MacBookPro18,3", laptop14},
    Model{"apple,j314c", laptop14}, Model{"MacBookPro18,4", laptop14},
    Model{"apple,j414s", laptop14}, Model{"Mac14,9", laptop14},
    Model{"apple,j414c", laptop14}, Model{"Mac14,5", laptop14},
    Model{"apple,j415", laptop15},  Model{"Mac14,15", laptop15},
    Model{"apple,j316s", laptop16}, Model{"MacBookPro18,1", laptop16},
    Model{"apple,j316c", laptop16}, Model{"MacBookPro18,2", laptop16},
    Model{"apple,j416s", laptop16}, Model{"Mac14,10", laptop16},
    Model{"apple,j416c", laptop16}, Model{"Mac14,6", laptop16},
};

// "compatible" holds several names, each with a zero byte behind it, the model's first (Devicetree
// Specification 2.3.1).
std::vector<std::string> namesOf(const std::filesystem::path& root) {
    std::vector<std::string> names;
    const auto tree =
        readRegularFile(root / "sys/firmware/devicetree/base/compatible", longest).bytes;
    for (std::size_t from = 0; from < tree.size();) {
        const std::size_t to = std::min(tree.find('\0', from), tree.size());
        names.push_back(tree.substr(from, to - from));
        from = to + 1;
    }
    const auto product = readRegularFile(root / "sys/class/dmi/id/product_name", longest).bytes;
    names.emplace_back(unicode::trimmed(product));
    return names;
}

bool isBuiltIn(const QString& connector) {
    return connector.startsWith(QLatin1String("eDP")) || connector.startsWith(QLatin1String("DSI"));
}

}  // namespace

std::optional<NotchedDisplay> notchedDisplay(const std::filesystem::path& root) {
    for (const std::string& name : namesOf(root)) {
        const auto model = std::find_if(models.begin(), models.end(),
                                        [&](const Model& each) { return each.name == name; });
        if (model != models.end()) return model->display;
    }
    return std::nullopt;
}

void enterNotch(Screen& screen, const QString& connector, const NotchedDisplay& display) {
    const QSizeF size = screen.frame.size();
    if (!isBuiltIn(connector) || size.isEmpty()) return;
    // Points are whole ones: the aspect may be off by as much.
    const double pointsPerPixel = size.width() / display.size.width();
    if (std::abs(size.height() - display.size.height() * pointsPerPixel) > 1) return;
    const double side = (display.size.width() - display.camera) / 2 * pointsPerPixel;
    screen.topInset = display.strip * pointsPerPixel;
    screen.auxiliaryTopLeft = QRectF(0, 0, side, screen.topInset);
    screen.auxiliaryTopRight = QRectF(size.width() - side, 0, side, screen.topInset);
}

}  // namespace noonward
