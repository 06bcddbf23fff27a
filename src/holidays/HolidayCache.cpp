#include "holidays/HolidayCache.h"

#include <fcntl.h>

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Descriptor.h"
#include "base/ReadFile.h"
#include "reference/Country.h"

namespace noonward {
namespace {

using Json = nlohmann::json;

/// Larger files are neither read nor written: a country's calendar has 50 KB.
constexpr std::size_t largestFile = 2 << 20;

std::filesystem::path cacheFile(const std::filesystem::path& folder, const std::string& country) {
    if (folder.empty() || !Country::isCode(country)) return {};
    return folder / (country + ".json");
}

/// A key that is present and not null.
const Json* present(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

std::optional<Holiday> decodeHoliday(const Json& json) {
    if (!json.is_object()) return std::nullopt;
    const Json* name = present(json, "name");
    const Json* regional = present(json, "regional");
    if (!name || !name->is_string() || (regional && !regional->is_string())) return std::nullopt;
    Holiday holiday{name->get<std::string>()};
    if (regional) holiday.regional = regional->get<std::string>();
    return holiday;
}

std::optional<CachedHolidays> decode(std::string_view text) {
    const Json json = Json::parse(text.begin(), text.end(), nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) return std::nullopt;
    const Json* fetched = present(json, "fetched");
    const Json* days = present(json, "days");
    if (!fetched || !fetched->is_number() || !days || !days->is_object()) return std::nullopt;

    std::vector<HolidayDays::Entry> entries;
    entries.reserve(days->size());
    for (const auto& [key, value] : days->items()) {
        auto holiday = decodeHoliday(value);
        if (!holiday) return std::nullopt;
        if (const auto day = DayKey::parse(key)) entries.emplace_back(*day, std::move(*holiday));
    }
    return CachedHolidays{fetched->get<double>(), HolidayDays(std::move(entries))};
}

std::string encode(const CachedHolidays& cached) {
    Json days = Json::object();
    for (const auto& [day, holiday] : cached.days) {
        Json& entry = days[day.text()];
        entry["name"] = holiday.name;
        if (holiday.regional) entry["regional"] = *holiday.regional;
    }
    Json json = Json::object();
    json["fetched"] = cached.fetched;
    json["days"] = std::move(days);
    return json.dump(-1, ' ', /*ensure_ascii=*/false, Json::error_handler_t::replace);
}

bool writeNewFile(const std::filesystem::path& path, std::string_view text,
                  FileOperations& operations) {
    const Descriptor file(operations.openForWriting(path, O_CREAT | O_EXCL));
    return file && operations.writeAll(file.number(), text);
}

}  // namespace

double secondsSince2001(Instant at) {
    using namespace std::chrono;
    constexpr sys_days start = year(2001) / January / 1;
    return duration<double>(at - start).count();
}

std::optional<CachedHolidays> readHolidayCache(const std::filesystem::path& folder,
                                               const std::string& country) {
    const auto file = cacheFile(folder, country);
    if (file.empty()) return std::nullopt;
    const FileContents contents = readRegularFile(file, largestFile);
    if (contents.state != FileContents::State::read) return std::nullopt;
    return decode(contents.bytes);
}

void writeHolidayCache(const std::filesystem::path& folder, const std::string& country,
                       const CachedHolidays& cached, FileOperations& operations) {
    const auto file = cacheFile(folder, country);
    const std::string text = encode(cached);
    if (file.empty() || text.size() > largestFile) return;
    operations.createFolders(folder);

    // Renamed when whole, so that nobody ever reads a part.
    auto saving = file;
    saving += ".saving";
    operations.remove(saving);
    if (!writeNewFile(saving, text, operations) || operations.rename(saving, file) != 0)
        operations.remove(saving);
}

}  // namespace noonward
