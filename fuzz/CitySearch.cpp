// What is typed to find a city of the catalogue.

#include <set>

#include "Require.h"
#include "base/Unicode.h"
#include "reference/Cities.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace noonward;
    const std::string typed(fuzz::text(data, size));
    const auto found = Cities::search(typed);
    const std::set<const City*> different(found.begin(), found.end());
    fuzz::require(different.size() == found.size() && !different.contains(nullptr),
                  "each city once");
    if (unicode::trimmed(typed).empty()) fuzz::require(found.empty(), "nothing finds nothing");
    fuzz::require(Cities::rowNames(found).size() == found.size(), "each has a name");
    return 0;
}
