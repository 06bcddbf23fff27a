#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Countries by the two-letter codes of ISO 3166, as zone.tab writes them.
namespace noonward::Country {

/// Whether a text has the form of a code: two capital ASCII letters.
bool isCode(std::string_view text);

/// The code of the country a zone is for; nothing for zones of no country, such as "UTC". Some
/// older identifiers ("Asia/Calcutta") count as their present ones.
std::optional<std::string> code(std::string_view forZone);

/// The name in British English, "India" for "IN"; the code itself where there is none.
std::string name(const std::string& code);

/// The usual working days, 1 = Sunday … 7 = Saturday, first day first. Monday to Friday where
/// nothing else is known.
const std::vector<int>& workingDays(const std::optional<std::string>& code);

}  // namespace noonward::Country
