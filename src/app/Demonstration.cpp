#include "app/Demonstration.h"

#include <charconv>

namespace noonward {
namespace {

std::optional<int> number(const std::optional<std::string>& text) {
    return text ? parseWhole(*text) : std::nullopt;
}

std::optional<Demonstration::TravelState> travelState(const std::optional<std::string>& text) {
    using TravelState = Demonstration::TravelState;
    if (!text) return std::nullopt;
    if (*text == "ask") return TravelState::ask;
    return *text == "here" ? TravelState::here : TravelState::home;
}

std::vector<std::string> split(std::string_view list) {
    std::vector<std::string> pieces;
    while (!list.empty()) {
        const std::size_t comma = list.find(',');
        const std::string_view piece = list.substr(0, comma);
        if (!piece.empty()) pieces.emplace_back(piece);
        list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    }
    return pieces;
}

}  // namespace

std::optional<int> parseWhole(std::string_view text) {
    // from_chars takes a minus sign but no plus.
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<Demonstration> Demonstration::from(const Environment& environment) {
    Demonstration result;
    result.ribbon = environment("NOONWARD_SNAPSHOT");
    result.settings = environment("NOONWARD_SETTINGS");
    result.welcome = environment("NOONWARD_WELCOME");
    result.notch = environment("NOONWARD_NOTCH");
    if (!result.ribbon && !result.settings && !result.welcome && !result.notch) {
        return std::nullopt;
    }
    result.five = environment("NOONWARD_FIVE").has_value();
    result.travel = travelState(environment("NOONWARD_TRAVEL"));
    result.roll = environment("NOONWARD_ROLL").has_value();
    result.update = environment("NOONWARD_UPDATE");
    result.column = number(environment("NOONWARD_COL"));
    result.minutes = number(environment("NOONWARD_MINUTES"));
    result.time = environment("NOONWARD_TIME");
    if (const auto hide = environment("NOONWARD_HIDE")) result.hide = split(*hide);
    if (const auto format = environment("NOONWARD_FORMAT")) result.format = hourFormat(*format);
    result.light = environment("NOONWARD_LIGHT").has_value();
    result.query = environment("NOONWARD_QUERY").value_or("");
    result.edit = number(environment("NOONWARD_EDIT"));
    return result;
}

}  // namespace noonward
