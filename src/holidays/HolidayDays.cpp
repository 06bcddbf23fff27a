#include "holidays/HolidayDays.h"

#include <algorithm>

namespace noonward {
namespace {

bool isEarlier(const HolidayDays::Entry& a, const HolidayDays::Entry& b) {
    return a.first < b.first;
}

}  // namespace

HolidayDays::HolidayDays(std::vector<Entry> entries) : entries_(std::move(entries)) {
    std::stable_sort(entries_.begin(), entries_.end(), isEarlier);
    // Backwards, so that of equal days the last one stays.
    const auto sameDay = [](const Entry& a, const Entry& b) { return a.first == b.first; };
    const auto unique = std::unique(entries_.rbegin(), entries_.rend(), sameDay);
    entries_.erase(entries_.begin(), unique.base());
}

HolidayDays::const_iterator HolidayDays::from(DayKey day) const {
    return std::lower_bound(entries_.begin(), entries_.end(), day,
                            [](const Entry& entry, DayKey key) { return entry.first < key; });
}

const Holiday* HolidayDays::find(DayKey day) const {
    const auto found = from(day);
    return found == entries_.end() || found->first != day ? nullptr : &found->second;
}

}  // namespace noonward
