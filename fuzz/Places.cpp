// The text of places.json: what is saved of it is the same when it is read again.

#include "Require.h"
#include "config/ConfigJson.h"

namespace noonward::fuzz {
namespace {

void read(std::string_view text) {
    static const TimeZone here = TimeZone::find("Asia/Kolkata").value();
    const auto decoded = decodeConfig(text, here);
    if (!decoded) return;
    const Config tidied = decoded->config.tidied(here);
    require(!tidied.places.empty(), "there is a place");
    require(tidied.places.front().home == true, "home is in front");
    require(tidied.tidied(here) == tidied, "what is in order stays as it is");

    const std::string saved = encodeConfig(tidied);
    const auto again = decodeConfig(saved, here);
    require(again && again->hasAllKeys, "what is saved can be read");
    require(encodeConfig(again->config) == saved, "and is the same");
    // Texts that are no UTF-8 are mended by the first save.
    require(again->config.places.size() == tidied.places.size(), "no place is lost");
}

}  // namespace
}  // namespace noonward::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    noonward::fuzz::read(noonward::fuzz::text(data, size));
    return 0;
}
