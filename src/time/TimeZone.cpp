#include "time/TimeZone.h"

#include <cctz/zone_info_source.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <utility>

#include "time/ZoneDatabase.h"

namespace noonward {

struct TimeZone::Data {
    std::string identifier;
    cctz::time_zone zone;
    // The span last asked for: nearly every question is about the days around now.
    mutable Span span{};
};

namespace {

using CctzInstant = cctz::time_point<cctz::seconds>;

// Beyond 2400 the library repeats its last years of rules and lists no transitions.
constexpr Instant endOfTransitions = std::chrono::sys_days(std::chrono::year(2400) / 1 / 1);

constexpr Instant bounded(Instant at) {
    return std::clamp(at, TimeZone::earliest, TimeZone::latest);
}

CctzInstant cctzInstant(Instant at) {
    const auto whole = std::chrono::floor<seconds>(at).time_since_epoch();
    return CctzInstant(cctz::seconds(whole.count()));
}

seconds offsetAt(const cctz::time_zone& zone, Instant at) {
    return seconds(zone.lookup(cctzInstant(at)).offset);
}

// The instant at which a clock with that offset shows a civil time. A zone's data may begin with an
// entry that stands for the beginning of time, too far away to be an instant.
Instant instantOf(const cctz::civil_second& shown, seconds offset) {
    const seconds at = seconds(shown - cctz::civil_second()) - offset;
    if (at <= std::chrono::floor<seconds>(TimeZone::earliest).time_since_epoch()) {
        return TimeZone::earliest;
    }
    if (at >= std::chrono::floor<seconds>(TimeZone::latest).time_since_epoch()) {
        return TimeZone::latest;
    }
    return Instant(at);
}

// A transition may change the abbreviation only; those do not end a span.
Instant spanStart(const cctz::time_zone& zone, Instant at, seconds offset) {
    cctz::time_zone::civil_transition change;
    CctzInstant before = cctzInstant(at) + cctz::seconds(1);
    while (zone.prev_transition(before, &change)) {
        const Instant start = instantOf(change.to, offset);
        if (start == TimeZone::earliest) break;
        if (change.from != change.to) return start;
        before = cctzInstant(start);
    }
    return Instant::min();
}

Instant spanEnd(const cctz::time_zone& zone, Instant at, seconds offset) {
    cctz::time_zone::civil_transition change;
    CctzInstant after = cctzInstant(at);
    while (zone.next_transition(after, &change)) {
        const Instant end = instantOf(change.from, offset);
        if (change.from != change.to || end >= endOfTransitions) return end;
        after = cctzInstant(end);
    }
    return endOfTransitions;
}

// The last of the instants between `inside` and `outside` that still has the offset, to the second.
Instant edge(const cctz::time_zone& zone, Instant inside, Instant outside, seconds offset) {
    outside = bounded(outside);
    if (offsetAt(zone, outside) == offset) return outside;
    while (outside - inside > seconds(1) || inside - outside > seconds(1)) {
        const Instant middle = std::chrono::floor<seconds>(inside + (outside - inside) / 2);
        (offsetAt(zone, middle) == offset ? inside : outside) = middle;
    }
    return inside;
}

TimeZone::Span distantSpan(const cctz::time_zone& zone, Instant at, seconds offset) {
    const Instant second = std::chrono::floor<seconds>(at);
    const Instant from = edge(zone, second, second - hours(24), offset);
    const Instant last = edge(zone, second, second + hours(24), offset);
    return {std::max(from, endOfTransitions), last + seconds(1), offset};
}

class FileInMemory final : public cctz::ZoneInfoSource {
 public:
    explicit FileInMemory(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t Read(void* to, std::size_t size) override {
        const std::size_t count = std::min(size, bytes_.size() - position_);
        std::memcpy(to, bytes_.data() + position_, count);
        position_ += count;
        return count;
    }

    int Skip(std::size_t offset) override {
        if (offset > bytes_.size() - position_) return -1;
        position_ += offset;
        return 0;
    }

 private:
    std::string bytes_;
    std::size_t position_ = 0;
};

// The name under which cctz keeps a zone. It never reads a name twice; zone data that has been
// replaced while the program runs could be taken up under another prefix.
constexpr std::string_view loadPrefix = "system:";

std::unique_ptr<cctz::ZoneInfoSource> openZone(
    const std::string& name,
    const std::function<std::unique_ptr<cctz::ZoneInfoSource>(const std::string&)>& /*fallback*/) {
    if (name.rfind(loadPrefix, 0) != 0) return nullptr;
    auto bytes = zonedatabase::readFile(name.substr(loadPrefix.size()));
    if (!bytes) return nullptr;
    return std::make_unique<FileInMemory>(std::move(*bytes));
}

constexpr std::string_view utcIdentifier = "UTC";

}  // namespace

std::optional<TimeZone> TimeZone::find(std::string_view identifier) {
    // Never destroyed: handles point into it for as long as the process lives.
    static auto& loaded = *new std::map<std::string, Data, std::less<>>;
    if (const auto found = loaded.find(identifier); found != loaded.end()) {
        return TimeZone(found->second);
    }
    Data data{.identifier = std::string(identifier), .zone = cctz::utc_time_zone()};
    if (identifier != utcIdentifier) {
        if (!zonedatabase::lists(identifier)) return std::nullopt;
        const std::string name = std::string(loadPrefix).append(identifier);
        if (!cctz::load_time_zone(name, &data.zone)) return std::nullopt;
    }
    const auto entry = loaded.emplace(data.identifier, data).first;
    return TimeZone(entry->second);
}

TimeZone TimeZone::utc() {
    return *find(utcIdentifier);
}

bool TimeZone::isKnown(std::string_view identifier) {
    if (identifier == utcIdentifier) return true;
    return zonedatabase::lists(identifier) && zonedatabase::hasFile(std::string(identifier));
}

const std::vector<std::string>& TimeZone::listed() {
    static const std::vector<std::string> identifiers = [] {
        std::vector<std::string> names;
        for (const auto& row : zonedatabase::table())
            names.push_back(row.zone);
        std::sort(names.begin(), names.end());
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }();
    return identifiers;
}

const std::string& TimeZone::identifier() const {
    return data_->identifier;
}

seconds TimeZone::offset(Instant at) const {
    return span(at).offset;
}

std::string TimeZone::abbreviation(Instant at) const {
    return data_->zone.lookup(cctzInstant(bounded(at))).abbr;
}

TimeZone::Span TimeZone::span(Instant at) const {
    at = bounded(at);
    Span& held = data_->span;
    if (at >= held.from && at < held.until) return held;
    const seconds offset = offsetAt(data_->zone, at);
    if (at >= endOfTransitions) {
        held = distantSpan(data_->zone, at, offset);
    } else {
        held = {spanStart(data_->zone, at, offset),
                std::min(spanEnd(data_->zone, at, offset), endOfTransitions), offset};
    }
    return held;
}

const cctz::time_zone& TimeZone::handle() const {
    return data_->zone;
}

}  // namespace noonward

namespace cctz_extension {

// cctz looks for this name when it is linked, and takes its own where there is none.
ZoneInfoSourceFactory zone_info_source_factory = noonward::openZone;

}  // namespace cctz_extension
