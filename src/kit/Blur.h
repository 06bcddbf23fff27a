#pragma once

#include <QImage>

namespace kit {

/// Blurs a premultiplied picture in place: three box blurs, which come close to a Gaussian of
/// that standard deviation, in pixels. What lies outside the picture counts as transparent.
void blur(QImage& image, double deviation);

}  // namespace kit
