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
    std::size_t fingerprint = 0;  // of the file it was read from
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

// cctz asks for a zone's file by the name it is to be known by, and never twice for the same name.
// So each load has a new name, and the bytes lie ready here.
std::unique_ptr<cctz::ZoneInfoSource> bytesToLoad;

std::unique_ptr<cctz::ZoneInfoSource> takeBytes(
    const std::string& /*name*/,
    const std::function<std::unique_ptr<cctz::ZoneInfoSource>(const std::string&)>& /*fallback*/) {
    return std::move(bytesToLoad);
}

std::optional<cctz::time_zone> load(const std::string& identifier, std::string bytes) {
    static int loads = 0;
    bytesToLoad = std::make_unique<FileInMemory>(std::move(bytes));
    cctz::time_zone zone;
    const std::string name = std::to_string(++loads) + ":" + identifier;
    if (!cctz::load_time_zone(name, &zone)) return std::nullopt;
    return zone;
}

std::size_t fingerprint(const std::string& bytes) {
    return std::hash<std::string>()(bytes);
}

constexpr std::string_view utcIdentifier = "UTC";

}  // namespace

std::map<std::string, TimeZone::Data, std::less<>>& TimeZone::loaded() {
    // Never destroyed: handles point into it for as long as the process lives.
    static auto& zones = *new std::map<std::string, Data, std::less<>>;
    return zones;
}

std::optional<TimeZone> TimeZone::find(std::string_view identifier) {
    if (const auto found = loaded().find(identifier); found != loaded().end()) {
        return TimeZone(found->second);
    }
    Data data{.identifier = std::string(identifier), .zone = cctz::utc_time_zone()};
    if (identifier != utcIdentifier) {
        if (!zonedatabase::lists(identifier)) return std::nullopt;
        const auto bytes = zonedatabase::readFile(data.identifier);
        const auto zone = bytes ? load(data.identifier, *bytes) : std::nullopt;
        if (!zone) return std::nullopt;
        data.zone = *zone;
        data.fingerprint = fingerprint(*bytes);
    }
    return TimeZone(loaded().emplace(data.identifier, data).first->second);
}

bool TimeZone::takeUpReplacedData(const ReadFile& read) {
    bool changed = false;
    for (auto& [identifier, data] : loaded()) {
        if (identifier == utcIdentifier) continue;
        const auto bytes = read(identifier);
        if (!bytes || fingerprint(*bytes) == data.fingerprint) continue;
        const auto zone = load(identifier, *bytes);
        if (!zone) continue;  // half written, perhaps: the old rules stay
        data.zone = *zone;
        data.fingerprint = fingerprint(*bytes);
        data.span = {};
        changed = true;
    }
    return changed;
}

bool TimeZone::takeUpReplacedData() {
    return takeUpReplacedData(zonedatabase::readFile);
}

TimeZone TimeZone::utc() {
    return *find(utcIdentifier);
}

bool TimeZone::isKnown(std::string_view identifier) {
    if (identifier == utcIdentifier) return true;
    return zonedatabase::lists(identifier) && zonedatabase::hasFile(std::string(identifier));
}

const std::vector<std::string>& TimeZone::listed() {
    return zonedatabase::identifiers();
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
ZoneInfoSourceFactory zone_info_source_factory = noonward::takeBytes;

}  // namespace cctz_extension
