#include "config/ConfigJson.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

namespace noonward {
namespace {

using Json = nlohmann::json;

constexpr const char* allNames[] = {"hourFormat", "homeZones",  "favourites",
                                    "clickSound", "appearance", "meetingMinutes",
                                    "welcomed",   "rolling",    "places"};

// Each `read` takes a value of exactly the type asked for, and refuses any other.

bool read(const Json& value, std::string& out) {
    if (!value.is_string()) return false;
    out = value.get_ref<const std::string&>();
    return true;
}

bool read(const Json& value, bool& out) {
    if (!value.is_boolean()) return false;
    out = value.get<bool>();
    return true;
}

bool read(const Json& value, double& out) {
    if (!value.is_number()) return false;
    out = value.get<double>();
    return true;
}

bool read(const Json& value, int& out) {
    double number = 0;  // holds every int exactly
    if (!read(value, number)) return false;
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return false;
    if (std::trunc(number) != number) return false;
    out = static_cast<int>(number);
    return true;
}

bool read(const Json& value, Travel& out);
bool read(const Json& value, Place& out);

template <typename T>
bool read(const Json& value, std::vector<T>& out) {
    if (!value.is_array()) return false;
    out.clear();
    return std::all_of(value.begin(), value.end(),
                       [&](const Json& element) { return read(element, out.emplace_back()); });
}

template <typename T>
bool read(const Json& value, std::optional<T>& out) {
    return read(value, out.emplace());
}

const Json* present(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

template <typename T>
bool readRequired(const Json& object, const char* key, T& out) {
    const Json* value = present(object, key);
    return value && read(*value, out);
}

/// Leaves `out` as it is when the key is missing or null.
template <typename T>
bool readOptional(const Json& object, const char* key, T& out) {
    const Json* value = present(object, key);
    return !value || read(*value, out);
}

bool read(const Json& value, Travel& out) {
    return value.is_object() && readRequired(value, "zone", out.zone) &&
           readRequired(value, "here", out.here);
}

bool read(const Json& value, Place& out) {
    return value.is_object() && readRequired(value, "label", out.label) &&
           readRequired(value, "short", out.shortName) && readRequired(value, "zone", out.zone) &&
           readOptional(value, "home", out.home) && readOptional(value, "abbr", out.abbr) &&
           readOptional(value, "work", out.work) && readOptional(value, "workdays", out.workdays) &&
           readOptional(value, "holidays", out.holidays) &&
           readOptional(value, "daysOff", out.daysOff);
}

/// Files of older versions call the favourites "notch".
bool readFavourites(const Json& object, std::vector<std::string>& out) {
    return readOptional(object, present(object, "favourites") ? "favourites" : "notch", out);
}

bool read(const Json& value, Config& out) {
    return value.is_object() && readOptional(value, "hourFormat", out.hourFormat) &&
           readOptional(value, "homeZones", out.homeZones) &&
           readFavourites(value, out.favourites) &&
           readOptional(value, "clickSound", out.clickSound) &&
           readOptional(value, "appearance", out.appearance) &&
           readOptional(value, "meetingMinutes", out.meetingMinutes) &&
           readOptional(value, "welcomed", out.welcomed) &&
           readOptional(value, "travel", out.travel) &&
           readOptional(value, "rolling", out.rolling) && readOptional(value, "places", out.places);
}

/// Whole hours without a fraction, "[8, 18.5]".
Json hoursJson(const std::vector<double>& hours) {
    Json list = Json::array();
    for (const double hour : hours) {
        const bool whole = std::trunc(hour) == hour && std::abs(hour) < 1e15;
        list.push_back(whole ? Json(static_cast<std::int64_t>(hour)) : Json(hour));
    }
    return list;
}

/// JSON has no numbers for infinities and the like; a file with null among its hours would be
/// refused as a whole.
bool canBeWritten(const std::vector<double>& hours) {
    return std::all_of(hours.begin(), hours.end(), [](double hour) { return std::isfinite(hour); });
}

Json placeJson(const Place& place) {
    Json object = Json::object();
    object["label"] = place.label;
    object["short"] = place.shortName;
    object["zone"] = place.zone;
    if (place.home) object["home"] = *place.home;
    if (place.abbr) object["abbr"] = *place.abbr;
    if (place.work && canBeWritten(*place.work)) object["work"] = hoursJson(*place.work);
    if (place.workdays) object["workdays"] = *place.workdays;
    if (place.holidays) object["holidays"] = *place.holidays;
    if (place.daysOff) object["daysOff"] = *place.daysOff;
    return object;
}

}  // namespace

std::optional<DecodedConfig> decodeConfig(std::string_view text, const TimeZone& here) {
    // The parser takes a NUL for the end; what follows one would be lost with the next save.
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    const Json json = Json::parse(text.begin(), text.end(), nullptr, /*allow_exceptions=*/false);
    DecodedConfig decoded{Config::defaults(here)};
    if (!read(json, decoded.config)) return std::nullopt;
    decoded.hasAllKeys = std::all_of(std::begin(allNames), std::end(allNames),
                                     [&](const char* name) { return json.contains(name); });
    return decoded;
}

std::string encodeConfig(const Config& config) {
    Json object = Json::object();
    object["hourFormat"] = config.hourFormat;
    object["homeZones"] = config.homeZones;
    object["favourites"] = config.favourites;
    object["clickSound"] = config.clickSound;
    object["appearance"] = config.appearance;
    object["meetingMinutes"] = config.meetingMinutes;
    object["welcomed"] = config.welcomed;
    object["rolling"] = config.rolling;
    if (config.travel)
        object["travel"] = {{"zone", config.travel->zone}, {"here", config.travel->here}};
    Json& places = object["places"] = Json::array();
    for (const Place& place : config.places)
        places.push_back(placeJson(place));
    return object.dump(2, ' ', /*ensure_ascii=*/false, Json::error_handler_t::replace) + '\n';
}

}  // namespace noonward
