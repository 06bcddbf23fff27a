#include "kit/Png.h"

#include <spng.h>

#include <cstdlib>
#include <memory>

namespace kit {
namespace {

struct Deleter {
    void operator()(spng_ctx* context) const { spng_ctx_free(context); }
    void operator()(void* bytes) const { std::free(bytes); }
};

// Large flat areas compress well without filters, and a low level takes a fraction of the time.
constexpr int compressionLevel = 1;

}  // namespace

QByteArray encodePng(const QImage& image) {
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    const std::unique_ptr<spng_ctx, Deleter> context(spng_ctx_new(SPNG_CTX_ENCODER));
    if (!context || rgba.isNull()) return {};

    spng_ihdr header{};
    header.width = static_cast<std::uint32_t>(rgba.width());
    header.height = static_cast<std::uint32_t>(rgba.height());
    header.bit_depth = 8;
    header.color_type = SPNG_COLOR_TYPE_TRUECOLOR_ALPHA;
    spng_set_option(context.get(), SPNG_ENCODE_TO_BUFFER, 1);
    spng_set_option(context.get(), SPNG_IMG_COMPRESSION_LEVEL, compressionLevel);
    spng_set_option(context.get(), SPNG_FILTER_CHOICE, SPNG_DISABLE_FILTERING);
    if (spng_set_ihdr(context.get(), &header) != 0) return {};
    // Rows of four-byte pixels need no padding, so the image is one block as the encoder wants it.
    const auto size = static_cast<std::size_t>(rgba.sizeInBytes());
    if (spng_encode_image(context.get(), rgba.constBits(), size, SPNG_FMT_PNG,
                          SPNG_ENCODE_FINALIZE) != 0) {
        return {};
    }
    std::size_t length = 0;
    int error = 0;
    const std::unique_ptr<void, Deleter> bytes(spng_get_png_buffer(context.get(), &length, &error));
    if (!bytes || error != 0) return {};
    return {static_cast<const char*>(bytes.get()), static_cast<qsizetype>(length)};
}

}  // namespace kit
