#include "holidays/Holidays.h"

#include <optional>

#include "holidays/CalendarReader.h"
#include "holidays/HolidayCache.h"

namespace noonward {
namespace {

constexpr double freshFor = 30 * 86'400;  // seconds

}  // namespace

/// A country's download under way.
struct Holidays::Download {
    std::string country;
    bool hasCache = false;
    std::vector<std::string> addresses;
    std::size_t next = 0;  // into the former
};

Holidays::Holidays(std::filesystem::path cacheFolder, const Clock& clock, HttpClient* http,
                   HolidaySource source)
    : cacheFolder_(std::move(cacheFolder)),
      clock_(clock),
      http_(http),
      source_(std::move(source)),
      alive_(std::make_shared<const bool>(true)) {}

Holidays::~Holidays() = default;

void Holidays::ensure(const std::string& country) {
    if (!asked_.insert(country).second) return;
    auto cached = readHolidayCache(cacheFolder_, country);
    const bool isFresh = cached && secondsSince2001(clock_.now()) - cached->fetched <= freshFor;
    const bool hasCache = cached.has_value();
    if (hasCache) {
        days_[country] = std::move(cached->days);
        changes_.announce();
    }
    if (!http_ || isFresh) return;
    Download download{country, hasCache, source_.addresses(country)};
    request(std::make_shared<Download>(std::move(download)));
}

/// Asks the next address, and from its answer goes on to the one after it.
void Holidays::request(const std::shared_ptr<Download>& download) {
    if (download->next == download->addresses.size()) return fail(*download);
    const std::string address = download->addresses[download->next++];
    const std::size_t asked = download->next;
    const std::weak_ptr<const bool> alive = alive_;
    http_->get(address, [this, alive, download, asked](std::optional<HttpResponse> response) {
        if (alive.expired() || download->next != asked) return;
        if (response) {
            if (const auto text = HolidaySource::calendar(std::move(*response))) {
                download->next = 0;  // no second answer counts
                return finish(*download, readCalendar(*text));
            }
        }
        request(download);
    });
}

void Holidays::finish(const Download& download, HolidayDays days) {
    const std::string& country = download.country;
    writeHolidayCache(cacheFolder_, country, {secondsSince2001(clock_.now()), days});
    missing_.erase(country);
    days_[country] = std::move(days);
    changes_.announce();
}

void Holidays::fail(const Download& download) {
    if (download.hasCache) return;
    missing_.insert(download.country);
    changes_.announce();
}

const Holiday* Holidays::holiday(const std::string& country, DayKey day) const {
    const HolidayDays* known = days(country);
    return known ? known->find(day) : nullptr;
}

std::vector<std::pair<DayKey, Holiday>> Holidays::upcoming(const std::string& country, DayKey from,
                                                           std::size_t count) const {
    std::vector<std::pair<DayKey, Holiday>> result;
    const HolidayDays* known = days(country);
    if (!known) return result;
    for (auto entry = known->from(from); entry != known->end() && result.size() < count; ++entry)
        if (!entry->second.regional) result.push_back(*entry);
    return result;
}

const HolidayDays* Holidays::days(const std::string& country) const {
    const auto found = days_.find(country);
    return found == days_.end() ? nullptr : &found->second;
}

bool Holidays::isMissing(const std::string& country) const {
    return missing_.contains(country);
}

HolidayDays Holidays::parse(std::string_view text) {
    return readCalendar(text);
}

}  // namespace noonward
