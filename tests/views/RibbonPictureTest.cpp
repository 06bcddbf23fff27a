#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "views/Picture.h"
#include "views/RibbonScene.h"

// Reads positions and colours back from the painted ribbon and compares them with what they should
// be, worked out here in numbers of its own.

namespace noonward::test {
namespace {

constexpr double stripe = 6;

constexpr Rgb white = hex(0xFFFFFF);
constexpr Rgb navy = hex(0x004165);
constexpr Rgb orange = hex(0xFF6D22);

struct Theme {
    Rgb tint, work, awake, asleep, off, fair, now, selected, barIdle;
    double selectedOpacity;
};

Theme theme(Scheme scheme) {
    if (scheme == Scheme::dark) {
        const Rgb tint = hex(0x081E32);
        return {tint,
                over(hex(0x0094B3), 0.62, tint),
                over(white, 0.13, tint),
                over(white, 0.04, tint),
                over(orange, 0.24, tint),
                hex(0x3EC5E4),
                orange,
                hex(0xAA272F),
                over(white, 0.18, tint),
                0.92};
    }
    const Rgb tint = hex(0xF5F8FB);
    return {tint,
            hex(0x007C97),
            over(navy, 0.08, tint),
            over(navy, 0.03, tint),
            over(orange, 0.16, tint),
            hex(0x0094B3),
            orange,
            hex(0xAA272F),
            over(navy, 0.12, tint),
            1};
}

testing::AssertionResult spans(std::pair<double, double> found, double from, double until) {
    // Half a pixel of the picture is a quarter of a point.
    if (std::abs(found.first - from) <= 0.2501 && std::abs(found.second - until) <= 0.2501) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "found " << found.first << " to " << found.second
                                       << ", wanted " << from << " to " << until;
}

// The whole picture of one situation, checked from its numbers.
class Reading {
 public:
    explicit Reading(const RibbonScene& scene)
        : store_(*scene.store), theme_(theme(scene.scheme)), picture_(scene.picture()) {
        double top = stripe + 40;
        for (const Row& row : store_.rows()) {
            const bool hidden = store_.isHidden(row);
            rows_.push_back({row, top, hidden});
            top += (hidden ? 26 : 56) + 8;
        }
        rowsHeight_ = top - 8 - (stripe + 40);
        shift_ = -32 * store_.scroll();
    }

    void check() const {
        frame();
        for (const Drawn& row : rows_) {
            if (!row.hidden) cells(row);
        }
        fairest();
        now();
        block();
    }

 private:
    struct Drawn {
        Row row;
        double top;
        bool hidden;
    };

    static double hourX(double position) {
        const double clamped = std::min(std::max(position, 0.0), 24.0);
        if (clamped == 24) return 1110;
        const double column = std::floor(clamped);
        return 342 + 32 * column + 30 * (clamped - column);
    }

    double position(Instant at) const {
        return std::chrono::duration<double>(at - store_.dayStart()).count() / 3600;
    }

    void frame() const {
        EXPECT_EQ(picture_.width(), 1196);
        constexpr std::array colours{0x004165U, 0x0094B3U, 0xAA272FU, 0xFF6D22U, 0x636467U};
        for (std::size_t i = 0; i < colours.size(); ++i) {
            const double left = 1196 / 5.0 * static_cast<double>(i);
            EXPECT_TRUE(picture_.is(left + 120, 3, hex(colours.at(i))));
            if (i > 0) {
                EXPECT_TRUE(picture_.is(left + 0.6, 3, hex(colours.at(i))));
            }
        }
        EXPECT_TRUE(picture_.is(600, stripe + 0.25, theme_.tint));
        for (const double x : {0.25, 1195.75}) {
            EXPECT_EQ(picture_.alpha(x, 0.25), 0);
            EXPECT_EQ(picture_.alpha(x, picture_.height() - 0.25), 0);
        }
        const double barTop = stripe + 40 + rowsHeight_ + 18;
        const Rgb outline = store_.timeQuery() ? theme_.fair
                            : store_.proposal()
                                ? over(theme_.selected, theme_.selectedOpacity * 0.6, theme_.tint)
                                : theme_.barIdle;
        EXPECT_TRUE(spans(picture_.down(outline, 600, barTop - 6, barTop + 6), barTop, barTop + 1));
        EXPECT_TRUE(spans(picture_.across(outline, barTop + 22, 10, 60), 28, 29));
        EXPECT_TRUE(spans(picture_.across(outline, barTop + 22, 1150, 1190), 1167, 1168));
    }

    Rgb fill(Phase phase) const {
        switch (phase) {
            case Phase::work:
                return theme_.work;
            case Phase::awake:
                return theme_.awake;
            case Phase::asleep:
                return theme_.asleep;
            case Phase::off:
                return theme_.off;
        }
        return {};
    }

    static double fade(double fromStripLeft) {
        constexpr std::array<std::pair<double, double>, 4> stops{
            {{0, 0}, {21, 0.1}, {42, 0.45}, {60, 1}}};
        const double d = std::min(fromStripLeft, 886 - fromStripLeft);
        if (d >= 60) return 1;
        for (std::size_t i = 1; i < stops.size(); ++i) {
            const auto& [x0, o0] = stops.at(i - 1);
            const auto& [x1, o1] = stops.at(i);
            if (d <= x1) return o0 + (o1 - o0) * (d - x0) / (x1 - x0);
        }
        return 1;
    }

    // Whether a mark is drawn over this x: what lies below it is not the cell's own colour.
    bool marked(double x) const {
        if (store_.dayOffset() == 0 && std::abs(x - nowX()) < 9) return true;
        const Columns shown = store_.columns();
        const int fair = store_.fairestCol();
        const double ring = 342 + 32.0 * fair - 2 + shift_;
        if (shown.contains(fair) && (std::abs(x - ring - 1) < 2 || std::abs(x - ring - 33) < 2)) {
            return true;
        }
        if (!store_.proposal()) return false;
        const double from = position(*store_.proposal());
        return x > hourX(from) + shift_ - 3 &&
               x < hourX(from + store_.duration() / 60.0) + shift_ + 3;
    }

    void cells(const Drawn& drawn) const {
        const int minute = drawn.row.cal.local(store_.dayStart()).minute;
        const double before = minute / 60.0 + store_.scroll();
        const double top = drawn.top + 6;
        for (int i = -2; i <= 25; ++i) {
            const Instant start = store_.dayStart() + hours(i) - minutes(minute);
            const double left = 342 + (i - before) * 32;
            const Rgb colour = fill(store_.phase(drawn.row, start, true));
            const double x = left + 15;
            const double inStrip = x - 282;
            if (inStrip < 1 || inStrip > 885 || marked(x)) continue;
            SCOPED_TRACE(drawn.row.label + " cell " + std::to_string(i));
            const double opacity = fade(inStrip);
            EXPECT_TRUE(picture_.is(x, top + 39, over(colour, opacity, theme_.tint),
                                    opacity < 1 ? 6 : 1.01));
            if (opacity < 1 || marked(left) || marked(left + 30)) continue;
            if (fade(left - 282 - 2) < 1 || fade(left + 32 - 282) < 1) continue;
            // The label leaves the outer points of the cell free, whatever it says.
            EXPECT_TRUE(
                spans(picture_.across(colour, top + 22, left - 2, left + 3), left, left + 3));
            EXPECT_TRUE(spans(picture_.across(colour, top + 22, left + 27, left + 32), left + 27,
                              left + 30));
            EXPECT_TRUE(spans(picture_.down(colour, x, top - 4, top + 8), top, top + 8));
            EXPECT_TRUE(spans(picture_.down(colour, x, top + 38, top + 48), top + 38, top + 44));
        }
    }

    // Marks are measured where nothing else is drawn: between the first rows. Over a single row
    // the ring's sides stand in the gaps between its cells.
    double besideCells() const {
        if (rows_.size() == 1) return rows_[0].top + 28;
        return rows_[0].top + (rows_[0].hidden ? 26 : 56) + 4;
    }

    void fairest() const {
        const int fair = store_.fairestCol();
        const bool shown = store_.columns().contains(fair);
        const Rgb colour = over(theme_.fair, store_.proposal() ? 0.45 : 1, theme_.tint);
        const double left = 342 + 32.0 * fair - 2 + shift_;
        if (!shown) {
            const auto found = picture_.across(theme_.fair, besideCells(), 330, 1190);
            EXPECT_EQ(found.first, found.second);
            return;
        }
        if (overlapped(left, left + 34)) return;
        EXPECT_TRUE(
            spans(picture_.across(colour, besideCells(), left - 4, left + 17), left, left + 2));
        EXPECT_TRUE(spans(picture_.across(colour, besideCells(), left + 17, left + 38), left + 32,
                          left + 34));
        EXPECT_TRUE(spans(picture_.down(colour, left + 17, stripe + 30, stripe + 38), stripe + 34,
                          stripe + 36));
        const double bottom = stripe + 34 + rowsHeight_ + 12;
        EXPECT_TRUE(
            spans(picture_.down(colour, left + 17, bottom - 4, bottom + 4), bottom - 2, bottom));
    }

    bool overlapped(double from, double until) const {
        if (store_.dayOffset() == 0 && nowX() > from - 8 && nowX() < until + 8) return true;
        if (!store_.proposal()) return false;
        const double start = position(*store_.proposal());
        return hourX(start) + shift_ - 4 < until &&
               hourX(start + store_.duration() / 60.0) + shift_ + 4 > from;
    }

    double nowX() const {
        const double h = position(store_.now());
        return 342 + std::floor(h) * 32 + (h - std::floor(h)) * 30 + shift_;
    }

    void now() const {
        const double y = stripe + 33;
        if (store_.dayOffset() != 0) {
            const auto found = picture_.across(theme_.now, y, 0, 1196);
            EXPECT_EQ(found.first, found.second) << "no now mark on another day";
            return;
        }
        const auto found = picture_.across(theme_.now, y, nowX() - 12, nowX() + 12);
        EXPECT_TRUE(spans(found, nowX() - 1, nowX() + 1));
        const double bottom = stripe + 32 + rowsHeight_ + 16;
        const auto end = picture_.down(theme_.now, found.first + 1, bottom - 6, bottom + 6);
        EXPECT_NEAR(end.second, bottom, 0.51) << "rounded by up to a point";
    }

    void block() const {
        if (!store_.proposal()) return;
        const double start = position(*store_.proposal());
        const double left = hourX(start) - 2 + shift_;
        const double right = hourX(start + store_.duration() / 60.0) + 2 + shift_;
        if (store_.dayOffset() == 0 && nowX() > left - 8 && nowX() < right + 8) return;
        const int fair = store_.fairestCol();
        const double ring = 342 + 32.0 * fair - 2 + shift_;
        if (ring < right + 2 && ring + 34 > left - 2) return;
        const Rgb inside = over(theme_.selected, theme_.selectedOpacity * 0.3, theme_.tint);
        const Rgb edge = over(theme_.selected, theme_.selectedOpacity, inside);
        const double y = besideCells();
        EXPECT_TRUE(spans(picture_.across(edge, y, left - 4, left + 4), left, left + 2));
        EXPECT_TRUE(spans(picture_.across(edge, y, right - 4, right + 4), right - 2, right));
        if (right - left > 24) {
            EXPECT_TRUE(picture_.is((left + right) / 2, y, inside, 1.6));
        }
        const double bottom = stripe + 36 + rowsHeight_ + 8;
        EXPECT_TRUE(spans(picture_.down(edge, (left + right) / 2, bottom - 4, bottom + 4),
                          bottom - 2, bottom));
    }

    const Store& store_;
    Theme theme_;
    Picture picture_;
    std::vector<Drawn> rows_;
    double rowsHeight_ = 0;
    double shift_ = 0;
};

Config rolling(Config config) {
    config.rolling = true;
    return config;
}

Config withZone(const char* label, const char* zone) {
    Config config = threePlaces();
    config.places.push_back({.label = label, .shortName = "X", .zone = zone});
    return config;
}

std::vector<Situation> situations() {
    Config one = threePlaces();
    one.places.resize(1);
    Config crossing = threePlaces();
    crossing.places[1].work = std::vector<double>{22, 6};
    crossing.places[2].workdays = std::vector<int>{};
    Config answered = threePlaces();
    answered.travel = Travel{"Asia/Tokyo", true};
    Config kept = threePlaces();
    kept.travel = Travel{"Asia/Tokyo", false};

    const auto typed = [](const char* text) {
        return [text](Store& store) { store.startTyping(text); };
    };
    return {
        {.name = "plain"},
        {.name = "light", .scheme = Scheme::light},
        {.name = "one place", .config = one},
        {.name = "six places", .config = sixPlaces(), .scheme = Scheme::light},
        {.name = "rolling", .config = rolling(sixPlaces()), .now = "2026-03-18 09:40:30"},
        {.name = "rolling on the hour",
         .config = rolling(threePlaces()),
         .now = "2026-03-18 09:00"},
        {.name = "rolling, next span",
         .config = rolling(threePlaces()),
         .now = "2026-03-18 20:20",
         .prepare = [](Store& store) { store.jumpToFairest(); }},
        {.name = "rolling, the fairest hour out of sight",
         .config = rolling(one),  // at eight in the morning, two hours beyond the strip
         .now = "2026-03-18 19:20"},
        {.name = "half-hour zone", .config = withZone("Pune", "Asia/Kolkata")},
        {.name = "quarter-hour zone",
         .config = withZone("Kathmandu", "Asia/Kathmandu"),
         .scheme = Scheme::light},
        {.name = "night shift and no working days", .config = crossing},
        {.name = "clock change at home", .now = "2026-03-29 12:00"},
        {.name = "utc row", .prepare = [](Store& store) { store.format = HourFormat::utc; }},
        {.name = "twelve hours",
         .config = sixPlaces(),
         .prepare = [](Store& store) { store.format = HourFormat::h12; }},
        {.name = "hidden row",
         .config = sixPlaces(),
         .prepare = [](Store& store) { store.toggleHidden(store.rows().at(1)); }},
        {.name = "all hidden",
         .prepare =
             [](Store& store) {
                 for (const Row& row : store.rows())
                     store.toggleHidden(row);
             }},
        {.name = "proposal", .prepare = [](Store& store) { store.propose(17); }},
        {.name = "proposal between the hours, light",
         .prepare =
             [](Store& store) {
                 store.setDuration(45);
                 store.place(store.instant(18) + minutes(20));
             },
         .scheme = Scheme::light},
        {.name = "proposal over midnight",
         .prepare = [](Store& store) { store.show(store.instant(23) + minutes(30)); }},
        {.name = "proposal in a rolling strip",
         .config = rolling(threePlaces()),
         .prepare = [](Store& store) { store.propose(20); }},
        {.name = "another day", .prepare = [](Store& store) { store.changeDay(3); }},
        {.name = "weekend and holiday",
         .now = "2026-04-04 09:40",
         .before =
             [](StoreWorld& world) {
                 world.cacheHolidays("US", R"("2026-04-03":{"name":"Spring Day"},)"
                                           R"("2026-04-04":{"name":"Spring Day"})");
                 world.cacheHolidays("SG", R"("2026-04-04":{"name":"Founders",)"
                                           R"("regional":"Jurong"})");
             }},
        {.name = "away, undecided", .here = "Asia/Tokyo"},
        {.name = "away, planning here", .config = answered, .here = "Asia/Tokyo"},
        {.name = "away, planning from home",
         .config = kept,
         .here = "Asia/Tokyo",
         .scheme = Scheme::light},
        {.name = "typing, understood", .prepare = typed("18:30 singapore")},
        {.name = "typing, not understood",
         .prepare = typed("18:30 nowhere"),
         .scheme = Scheme::light},
    };
}

TEST(RibbonPicture, IsWhatTheNumbersSay) {
    for (const Situation& situation : situations()) {
        SCOPED_TRACE(situation.name);
        const RibbonScene scene(situation);
        Reading(scene).check();
    }
}

}  // namespace
}  // namespace noonward::test
