#pragma once

#include <QImage>

namespace kit {

/// Blurs a picture in place, each of its 8-bit channels by itself: three box blurs, which come
/// close to a Gaussian of that standard deviation, in pixels. Colours must be premultiplied. What
/// lies outside the picture counts as transparent.
void blur(QImage& image, double deviation);

}  // namespace kit
