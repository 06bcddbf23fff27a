#include "model/Store.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/Unicode.h"
#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "model/DayOffNotes.h"
#include "model/FairestHour.h"
#include "model/Proposal.h"
#include "model/Rows.h"
#include "model/Texts.h"
#include "reference/TimeParser.h"

namespace noonward {

namespace {

constexpr std::chrono::seconds tick(15);

static_assert(Store::durations == meetingLengths);

int saturatingSum(int a, int b) {
    const std::int64_t sum = std::int64_t{a} + b;
    return static_cast<int>(std::clamp<std::int64_t>(sum, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

}  // namespace

/// What is computed from the configuration once and holds until what it came from has changed.
struct Store::Derived {
    // What it came from, beside the configuration.
    TimeZone here;
    bool planningHere;
    HourFormat format;
    std::set<std::string> hidden;

    std::vector<Row> places;
    std::vector<Row> planRows;
    std::vector<Row> rows;
    std::vector<Row> visible;
    std::size_t home;  ///< in planRows

    struct StripFor {
        Instant now;
        int dayOffset;
        Strip strip;
    };
    std::optional<StripFor> strip = std::nullopt;
};

Store::Store(Services services)
    : services_(services),
      now_(changes_, services.clock.now()),
      config_(changes_, services.configFile.load(services.zone.current())) {
    format = hourFormat(unicode::lowercased(config().hourFormat)).value_or(HourFormat::h24);
    holidayWatch_ = services_.holidays.changes().subscribe([this] { changes_.announce(); });
    fetchHolidays();
    ticks_ = services_.timer.every(tick, [this] { refreshNow(); });
    zoneWatch_ = services_.zoneChanges.subscribe([this] {
        services_.zone.resetSystemTimeZone();
        reload();
    });
}

Store::~Store() = default;

// ---- what is derived ----

const Store::Derived& Store::derived() const {
    const TimeZone here = whereabouts().here;
    const bool fromHere = planningHere();
    if (derived_ && derived_->here == here && derived_->planningHere == fromHere &&
        derived_->format == format() && derived_->hidden == hidden())
        return *derived_;

    auto places = placeRows(config(), here);
    auto planRows = fromHere ? rowsFromHere(places, config(), here) : places;
    auto rows = format() == HourFormat::utc ? withUtcRow(planRows) : planRows;
    auto visible = visibleRows(planRows, hidden());
    const std::size_t home = homeRowIndex(planRows);
    derived_ = std::make_unique<Derived>(Derived{here, fromHere, format(), hidden(),
                                                 std::move(places), std::move(planRows),
                                                 std::move(rows), std::move(visible), home});
    return *derived_;
}

const Whereabouts& Store::whereabouts() const {
    const TimeZone here = services_.zone.current();
    if (!whereabouts_ || whereabouts_->here != here)
        whereabouts_ = noonward::whereabouts(config(), here);
    return *whereabouts_;
}

const Row& Store::home() const {
    const Derived& all = derived();
    return all.planRows[all.home];
}

StripPlace Store::stripPlace(const Row& home) const {
    return {.home = home.cal, .now = now(), .rolling = config().rolling, .dayOffset = dayOffset()};
}

Strip Store::strip() const {
    const Row& row = home();
    auto& kept = derived_->strip;
    if (!kept || kept->now != now() || kept->dayOffset != dayOffset())
        kept = Derived::StripFor{now(), dayOffset(), stripAt(stripPlace(row))};
    return kept->strip;
}

void Store::publish(Config config) {
    whereabouts_.reset();
    derived_.reset();
    config_ = std::move(config);
}

// ---- places and rows ----

std::vector<Row> Store::places() const {
    return derived().places;
}
std::vector<Row> Store::planRows() const {
    return derived().planRows;
}
std::vector<Row> Store::rows() const {
    return derived().rows;
}
std::vector<Row> Store::visiblePlaces() const {
    return derived().visible;
}
std::vector<Row> Store::notchRows() const {
    return noonward::notchRows(derived().places, config());
}
Row Store::homeRow() const {
    return home();
}

TimeZone Store::homeZone() const {
    return whereabouts().home;
}
std::string Store::homeName() const {
    return noonward::homeName(config());
}
std::string Store::hereName() const {
    return noonward::hereName(config(), whereabouts().here);
}
bool Store::macElsewhere() const {
    return whereabouts().elsewhere;
}
bool Store::away() const {
    return whereabouts().away(services_.clock.now());
}
bool Store::planningHere() const {
    if (!config().travel) return false;  // as it is most of the time, and asked for each cell
    return noonward::planningHere(config().travel, whereabouts(), services_.clock.now());
}
bool Store::travelUndecided() const {
    return noonward::travelUndecided(config().travel, whereabouts(), services_.clock.now());
}

bool Store::isHidden(const Row& row) const {
    return !hidden().empty() && hidden().contains(unicode::lowercased(row.label));
}

void Store::toggleHidden(const Row& row) {
    auto labels = hidden();
    const std::string label = unicode::lowercased(row.label);
    if (labels.erase(label) == 0) labels.insert(label);
    hidden = std::move(labels);
}

// ---- the shown day ----

Instant Store::focus() const {
    if (proposal()) return *proposal();
    return hoverCol() ? instant(*hoverCol()) : now();
}

void Store::changeDay(int by) {
    const Instant oldStart = dayStart();
    dayOffset_ = saturatingSum(dayOffset(), by);
    if (proposal()) proposal_ = withinCalendar(dayStart() + (*proposal() - oldStart));
    hoverCol = std::nullopt;
}

void Store::show(Instant at) {
    at = withinCalendar(at);
    dayOffset_ = dayOffsetShowing(stripPlace(home()), at);
    proposal_ = at;
    hoverCol = std::nullopt;
}

void Store::refreshNow() {
    now_ = services_.clock.now();
}

void Store::backToNow() {
    proposal_ = std::nullopt;
    hoverCol = std::nullopt;
    timeQuery = std::nullopt;
    dayOffset_ = 0;
}

Phase Store::phase(const Row& row, Instant at, bool mid) const {
    return noonward::phase(row, at, mid, services_.holidays);
}

std::optional<DayOff> Store::dayOff(const Row& row, Instant at) const {
    return noonward::dayOff(row, at, services_.holidays);
}

// ---- the fairest hour and the proposed meeting ----

int Store::fairestCol() const {
    const Strip strip = this->strip();
    return noonward::fairestCol(derived().visible, strip,
                                fairestCandidates(strip, now(), dayOffset()), services_.holidays);
}

bool Store::proposalIsFairest() const {
    return proposal() && *proposal() == instant(fairestCol());
}

void Store::jumpToFairest() {
    const int column = fairestCol();
    if (columns().contains(column)) {
        propose(column);
    } else {
        show(instant(column));
    }
}

void Store::propose(int column) {
    const auto [first, last] = columns();
    proposal_ = instant(std::clamp(column, first, last));
    hoverCol = std::nullopt;
}

void Store::place(Instant at) {
    proposal_ = fitted(at, strip(), duration());
    hoverCol = std::nullopt;
}

void Store::step(int byMinutes) {
    const Instant base = proposal() ? *proposal() : instant(col(now()));
    place(moved(base, seconds(60) * byMinutes));
}

int Store::duration() const {
    return effectiveLength(config().meetingMinutes);
}

void Store::setDuration(int length) {
    change([length](Config& edited) { edited.meetingMinutes = length; });
    if (proposal()) place(*proposal());
}

void Store::cycleDuration() {
    setDuration(nextLength(duration()));
}

std::optional<int> Store::selectedCol() const {
    if (hoverCol()) return hoverCol();
    if (proposal()) return col(*proposal());
    return std::nullopt;
}

// ---- texts ----

std::string Store::time(Instant at, const Row& row) const {
    return timeText(at, row, format());
}
std::string Store::date(Instant at, const Row& row) const {
    return dateText(at, row);
}
std::string Store::diff(const Row& row, Instant at) const {
    return offsetText(row, home(), at);
}
std::string Store::hourLabel(int hour) const {
    return hourText(hour, format());
}

std::string Store::range(Instant from, const Row& row) const {
    return rangeText({from, duration()}, row, format());
}
std::string Store::summary(Instant at) const {
    return summaryText(at, derived().visible, format());
}
std::string Store::asText(Instant at) const {
    return plainText(at, derived().visible, format());
}
std::string Store::emailText(Instant from) const {
    return noonward::emailText({from, duration()}, derived().visible, format());
}

std::vector<std::string> Store::offNotes(Instant at) const {
    return dayOffNotes(derived().visible, at, services_.holidays);
}

// ---- typing ----

std::optional<Instant> Store::typedInstant() const {
    TimeContext context{.now = now(),
                        .dayStart = dayStart(),
                        .dayOffset = dayOffset(),
                        .rolling = config().rolling,
                        .homeZone = home().tz,
                        .rows = {}};
    for (const Row& row : derived().places)
        context.rows.push_back({.label = row.label, .shortName = row.shortName, .zone = row.tz});
    return TimeParser::parse(*timeQuery(), context);
}

void Store::restoreBeforeTyping() {
    proposal_ = beforeTyping_.first;
    dayOffset_ = beforeTyping_.second;
}

void Store::startTyping(const std::string& text) {
    beforeTyping_ = {proposal(), dayOffset()};
    timeQuery = text;
    preview();
}

void Store::preview() {
    if (!timeQuery()) return;
    if (const auto typed = typedInstant()) {
        show(*typed);
    } else if (timeQuery()->empty()) {
        restoreBeforeTyping();
    }
}

void Store::finishTyping(bool keep) {
    if (!keep) restoreBeforeTyping();
    timeQuery = std::nullopt;
}

bool Store::timeQueryValid() const {
    return timeQuery() && typedInstant();
}

}  // namespace noonward
