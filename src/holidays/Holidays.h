#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Published.h"
#include "holidays/Holiday.h"
#include "holidays/HolidayDays.h"
#include "holidays/HolidaySource.h"
#include "holidays/HttpClient.h"
#include "time/Calendar.h"
#include "time/DayKey.h"
#include "time/Instant.h"

namespace noonward {

/// The public holidays of every country in use: kept on disk, refreshed from the public calendar
/// service when older than 30 days. Countries are two-letter codes, "IN". Main thread only.
class Holidays final : public HolidayLookup {
 public:
    /// `cacheFolder` holds one file per country; empty: nothing is kept. Without `http` nothing is
    /// downloaded, and nothing counts as missing. Clock and client must outlive this object.
    Holidays(std::filesystem::path cacheFolder, const Clock& clock, HttpClient* http,
             HolidaySource source = {});
    ~Holidays() override;

    /// Sees to it that a country's calendar is loaded and, when stale or absent, asked for; once
    /// per country and run. What arrives later is announced through `changes`.
    void ensure(const std::string& country);

    const Holiday* holiday(const std::string& country, DayKey day) const override;

    /// The next `count` national holidays on or after a day, earliest first.
    std::vector<std::pair<DayKey, Holiday>> upcoming(const std::string& country, DayKey from,
                                                     std::size_t count = 3) const;

    /// A country's calendar, or null when none is loaded. Valid until the calendars change.
    const HolidayDays* days(const std::string& country) const;

    /// Whether neither disk nor network gave a calendar for a country in this run.
    bool isMissing(const std::string& country) const;

    /// Announces each change of the calendars and of which are missing.
    Announcer& changes() { return changes_; }

    /// The key of the day that an instant falls on in a calendar.
    static DayKey key(Instant at, const Calendar& calendar) { return calendar.dayKey(at); }

    /// Reads iCalendar text (RFC 5545) as the public calendar service writes it; see
    /// CalendarReader.h.
    static HolidayDays parse(std::string_view text);

 private:
    struct Download;

    void request(const std::shared_ptr<Download>& download);
    void finish(const Download& download, HolidayDays days);
    void fail(const Download& download);

    std::filesystem::path cacheFolder_;
    const Clock& clock_;
    HttpClient* http_;
    HolidaySource source_;
    Announcer changes_;
    std::map<std::string, HolidayDays, std::less<>> days_;
    std::set<std::string, std::less<>> missing_;
    std::set<std::string, std::less<>> asked_;
    std::shared_ptr<const bool> alive_;  // completion callbacks hold it weakly
};

}  // namespace noonward
