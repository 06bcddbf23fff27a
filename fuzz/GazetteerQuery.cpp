// What is typed to look a place up. Texts that hold a line feed are tables themselves, searched for
// their first line.

#include <set>

#include "Require.h"
#include "reference/Gazetteer.h"
#include "time/TimeZone.h"

namespace noonward::fuzz {
namespace {

void search(const Gazetteer& gazetteer, std::string_view typed, bool isOurs) {
    const auto found = gazetteer.search(typed);
    require(found.size() <= Gazetteer::most, "no more than promised");
    if (typed.size() > Gazetteer::longestText) require(found.empty(), "no endless texts");
    for (const Placemark& place : found) {
        require(place.name && place.country && place.zone, "all its fields");
        if (isOurs) require(TimeZone::find(*place.zone).has_value(), "a known zone");
    }
}

}  // namespace
}  // namespace noonward::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace noonward;
    const std::string_view text = fuzz::text(data, size);
    const std::size_t line = text.find('\n');
    if (line == std::string_view::npos) {
        fuzz::search(Gazetteer::builtIn(), text, true);
        return 0;
    }
    const std::string_view rest = text.substr(line + 1);
    const std::size_t areas = rest.find("\n\n");
    const Gazetteer strange(rest.substr(0, areas),
                            areas == std::string_view::npos ? "" : rest.substr(areas + 2));
    fuzz::search(strange, text.substr(0, line), false);
    return 0;
}
