#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Published.h"
#include "config/Config.h"
#include "holidays/DayOff.h"
#include "model/HourFormat.h"
#include "model/Phase.h"
#include "model/RepeatingTimer.h"
#include "model/Row.h"
#include "model/Strip.h"
#include "model/Travelling.h"
#include "time/Instant.h"
#include "time/SystemZone.h"
#include "time/TimeZone.h"
#include "time/ZoneChanges.h"

namespace noonward {

class ConfigFile;
class Holidays;
struct City;

/// The one observable model: the places, the clock, the shown day, the proposed meeting and the
/// texts made from it. Views read it and call its operations; each change is announced. Main thread
/// only. Column numbers and day counts from callers are clamped, never rejected.
class Store {
 public:
    struct Services {
        const Clock& clock;
        SystemZone& zone;
        ConfigFile& configFile;
        Holidays& holidays;
        RepeatingTimer& timer;
        ZoneChanges& zoneChanges;
    };

    static constexpr std::array durations{15, 30, 45, 60};  ///< meeting lengths on offer, minutes
    static constexpr int maxPlaces = 6;

    /// Loads the configuration and starts the clock; the services must outlive the store.
    explicit Store(Services services);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    /// Announces every change of the published values, and those of the holidays. One operation may
    /// announce several times.
    Announcer& changes() { return changes_; }

    // Published, changed by operations only.
    Instant now() const { return now_(); }  ///< read from the clock every 15 seconds
    int dayOffset() const { return dayOffset_(); }
    const std::optional<Instant>& proposal() const { return proposal_(); }
    const Config& config() const { return config_(); }

 private:
    Announcer changes_;

 public:
    // Published, written by views and shell as well: `store.hoverCol = 3`.
    Published<std::optional<int>> hoverCol{changes_};           ///< the column under the pointer
    Published<std::set<std::string>> hidden{changes_};          ///< lower-cased labels; never saved
    Published<std::optional<std::string>> timeQuery{changes_};  ///< present while typing a time
    Published<HourFormat> format{changes_};                     ///< not written back to the file
    Published<std::optional<std::string>> flash{changes_};      ///< a message that will pass

    // Places and rows.
    std::vector<Row> places() const;         ///< one per configured place
    std::vector<Row> planRows() const;       ///< those, as the travel answer has them
    std::vector<Row> rows() const;           ///< those, and the UTC row in the format `utc`
    std::vector<Row> visiblePlaces() const;  ///< `planRows` without the hidden: those that count
    std::vector<Row> notchRows() const;      ///< one or two: home and the favourite, not travelling
    Row homeRow() const;                     ///< the row everything is lined up on
    TimeZone homeZone() const;
    std::string homeName() const;
    std::string hereName() const;  ///< a name for the zone this computer is in
    bool macElsewhere() const;     ///< this computer is in a zone that does not count as home
    bool away() const;             ///< and the clock there differs from home's at this moment
    bool planningHere() const;     ///< away, and the answer was to plan from here
    bool travelUndecided() const;  ///< away, and not answered for this zone yet
    bool isHidden(const Row& row) const;
    void toggleHidden(const Row& row);

    // The shown day and its columns.
    Instant dayStart() const { return strip().dayStart; }
    Instant instant(int col) const { return strip().instant(col); }
    Instant shownDay() const { return strip().shownDay(); }
    double scroll() const { return strip().scroll(); }
    Columns columns() const { return strip().columns(); }
    int col(Instant at) const { return strip().col(at); }
    int column(double x, double pitch) const { return strip().column(x, pitch); }
    Instant focus() const;  ///< what the texts describe: the proposal, the hovered hour, or now
    void changeDay(int by);
    void show(Instant at);  ///< goes to its day and proposes it
    void refreshNow();      ///< reads the clock before it is due: it may have been set
    void backToNow();       ///< today, nothing proposed, hovered or typed

    Phase phase(const Row& row, Instant at, bool mid) const;
    std::optional<DayOff> dayOff(const Row& row, Instant at) const;

    // The fairest hour and the proposed meeting.
    int fairestCol() const;  ///< beyond 23 when the next such hour of the rolling strip is
    bool proposalIsFairest() const;
    void jumpToFairest();
    void propose(int col);
    void place(Instant at);        ///< snapped to five minutes, fitted into the strip
    void step(int byMinutes);      ///< moves the proposal, or the current hour where there is none
    int duration() const;          ///< minutes, one of `durations`
    void setDuration(int length);  ///< in minutes; others than `durations` count as 60
    void cycleDuration();
    std::optional<int> selectedCol() const;

    // Texts, each in the zone of its row.
    std::string time(Instant at, const Row& row) const;     ///< "09:05", "9:05 AM"
    std::string date(Instant at, const Row& row) const;     ///< "Tue 4 Mar"
    std::string diff(const Row& row, Instant at) const;     ///< "+5:30", "−3h", "" for home's own
    std::string hourLabel(int hour) const;                  ///< "9", "9a"
    std::string range(Instant from, const Row& row) const;  ///< start–end of the meeting
    std::string summary(Instant at) const;                  ///< one line
    std::string asText(Instant at) const;                   ///< a line per visible place
    std::string emailText(Instant from) const;

    std::vector<std::string> offNotes(Instant at) const;  ///< which places are off, and why

    // Typing a time: the view writes `timeQuery` and calls `preview`.
    void startTyping(const std::string& text = {});
    void preview();                ///< shows what is typed; cleared text shows what was before
    void finishTyping(bool keep);  ///< without `keep` what was before typing comes back
    bool timeQueryValid() const;

    // The configuration. Each edit of it is tidied, saved, then published. Places go by their
    // index; what an edit may not do, such as moving home, it silently leaves.
    void change(const std::function<void(Config&)>& body);
    void showWithoutSaving(const Config& config);  ///< for demonstration pictures
    void reload();                                 ///< from the file; refreshes the clock as well
    void add(const City& city);                    ///< up to `maxPlaces`
    bool has(const City& city) const;
    void remove(int index);
    void move(int index, int by);
    void rename(int index, const std::string& name);
    bool isHome(int index) const;
    void setHome(int index);
    bool isFavourite(int index) const;
    void toggleFavourite(int index);
    void nudgeWork(int index, bool start, double by);  ///< hours, to the start or the end
    void toggleWorkday(int index, int weekday);        ///< 1 = Sunday … 7 = Saturday
    void resetWeek(int index);
    void setHolidays(int index, bool on);
    void addDayOff(int index, const std::string& key);  ///< "yyyy-mm-dd"
    void removeDayOff(int index, const std::string& key);
    void setRolling(bool on);
    void setAppearance(const std::string& name);  ///< "system", "light" or "dark"
    void markWelcomed();
    void planFromHere(bool here);  ///< answers for the zone this computer is in
    void fetchHolidays();          ///< asks for the calendars of all countries in use

 private:
    struct Derived;
    const Derived& derived() const;
    const Whereabouts& whereabouts() const;
    const Row& home() const;
    StripPlace stripPlace(const Row& home) const;
    Strip strip() const;
    void save(const Config& edited);
    bool saveIfAny(const std::optional<Config>& edited);
    void saveAndFetch(const std::optional<Config>& edited);
    void publish(Config config);
    std::optional<Instant> typedInstant() const;
    void restoreBeforeTyping();

    Services services_;
    Published<Instant> now_;
    Published<int> dayOffset_{changes_, 0};
    Published<std::optional<Instant>> proposal_{changes_};
    Published<Config> config_;
    mutable std::optional<Whereabouts> whereabouts_;
    mutable std::unique_ptr<Derived> derived_;
    std::pair<std::optional<Instant>, int> beforeTyping_{};  // proposal and dayOffset
    Subscription holidayWatch_;
    Subscription ticks_;
    Subscription zoneWatch_;
};

}  // namespace noonward
