#pragma once

#include <string>
#include <string_view>

namespace noonward {

/// A place's name as it is looked up: without case, diacritics, apostrophes and full stops, other
/// punctuation as single spaces, and letters such as "ø" and "ß" as those they are taken for.
/// "Saint-Denis" gives "saint denis", "St. Louis" "st louis", "Xi’an" "xian", "Tromsø" "tromso".
std::string placeKey(std::string_view name);

}  // namespace noonward
