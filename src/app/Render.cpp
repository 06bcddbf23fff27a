#include "app/Render.h"

#include "kit/OffScreen.h"
#include "kit/Png.h"

namespace noonward {
namespace {

constexpr double pixelsPerPoint = 2;
constexpr double bodySize = 13;

}  // namespace

kit::Environment rootEnvironment() {
    return {.font = kit::systemFont(bodySize), .colour = kit::black};
}

QByteArray render(const kit::View& view) {
    const QImage image = kit::renderOffScreen(view, rootEnvironment(), pixelsPerPoint);
    return image.isNull() ? QByteArray() : kit::encodePng(image);
}

}  // namespace noonward
