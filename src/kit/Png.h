#pragma once

#include <QByteArray>
#include <QImage>

namespace kit {

/// The picture as a PNG file (8-bit RGBA, W3C REC-png), quickly rather than small; empty when it
/// cannot be encoded..
QByteArray encodePng(const QImage& image);

}  // namespace kit
