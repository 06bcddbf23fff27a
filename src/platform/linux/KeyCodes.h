#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace noonward {

/// The letter on the key of an ANSI keyboard with a virtual key code (17 is T), in upper case;
/// nothing for other keys.
constexpr std::optional<char> letterOf(int keyCode) {
    constexpr std::string_view byKeyCode = "ASDFHGZXCV.BQWERYT.............OU.IP.LJ.K....NM";
    if (keyCode < 0 || static_cast<std::size_t>(keyCode) >= byKeyCode.size()) return std::nullopt;
    const char letter = byKeyCode[static_cast<std::size_t>(keyCode)];
    return letter == '.' ? std::nullopt : std::optional(letter);
}

}  // namespace noonward
