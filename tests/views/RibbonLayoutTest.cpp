#include <gtest/gtest.h>

#include "kit/Node.h"
#include "views/RibbonScene.h"

namespace noonward::test {
namespace {

struct Line {
    std::string text;
    QRectF rect;
};

// Every line of text outside the hour cells, with its place.
std::vector<Line> lines(const kit::Placed& root) {
    std::vector<Line> result;
    kit::walk(root, [&](const kit::Placed& placed) {
        const std::string description = placed.node->description();
        if (description.rfind("text \"", 0) == 0 && placed.rect.width() > 0) {
            result.push_back({description.substr(6, description.size() - 7), placed.rect});
        }
    });
    return result;
}

const Line* lineStarting(const std::vector<Line>& all, const std::string& start) {
    for (const Line& line : all) {
        if (line.text.rfind(start, 0) == 0) return &line;
    }
    return nullptr;
}

void expectTidy(const RibbonScene& scene) {
    const kit::Placed root = scene.placed();
    EXPECT_EQ(root.rect.width(), 1196);
    const std::vector<Line> all = lines(root);
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_GE(all[i].rect.left(), 28) << all[i].text;
        EXPECT_LE(all[i].rect.right(), 1168.001) << all[i].text;
        EXPECT_LE(all[i].rect.bottom(), root.rect.bottom()) << all[i].text;
        for (std::size_t j = 0; j < i; ++j) {
            const QRectF common = all[i].rect & all[j].rect;
            EXPECT_FALSE(common.width() > 0.01 && common.height() > 0.01)
                << all[i].text << " lies over " << all[j].text;
        }
    }
}

// Names that nobody foresaw, and a day off for each of six places.
Config longNames() {
    Config config = sixPlaces();
    config.places[1].label = "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch";
    config.places[2].label = "Krung Thep Maha Nakhon Amon Rattanakosin Mahinthara";
    config.places[3].label = "مدينة تونس العاصمة الجميلة جدا والطويلة الاسم";
    config.places[4].label = std::string(10000, 'W');
    for (Place& place : config.places)
        place.daysOff = std::vector<std::string>{"2026-03-18"};
    return config;
}

TEST(RibbonLayout, NothingOverlapsOrLeavesItsPlace) {
    for (const bool solid : {true, false}) {
        for (const HourFormat format : allHourFormats) {
            for (const char* here : {"Europe/London", "Asia/Tokyo"}) {
                for (int mode = 0; mode < 4; ++mode) {
                    const RibbonPanel::Options options{.solid = solid, .demonstration = solid};
                    RibbonScene scene({.config = mode == 3 ? longNames() : sixPlaces(),
                                       .here = here,
                                       .options = options});
                    SCOPED_TRACE(std::string(here) + (solid ? " solid " : " live ") +
                                 std::to_string(mode) + ' ' + std::string(rawValue(format)));
                    scene.ui.updateReady = "12.10.3";
                    scene.store->format = format;
                    if (mode >= 1) scene.store->propose(15);
                    if (mode == 2) scene.store->startTyping("7:30am new york next tuesday");
                    expectTidy(scene);
                }
            }
        }
    }
}

TEST(RibbonLayout, LongLinesEndInsideTheGrid) {
    Config config = sixPlaces();
    const char* names[] = {"Washington, DC", "Ho Chi Minh City", "Rio de Janeiro",
                           "San Francisco",  "Salt Lake City",   "Kuala Lumpur"};
    for (std::size_t i = 0; i < 6; ++i)
        config.places[i].label = names[i];
    RibbonScene scene({.config = config, .before = [](StoreWorld& world) {
                           for (const char* country : {"GB", "US", "SG", "VN", "NP", "BR"}) {
                               world.cacheHolidays(country,
                                                   R"("2026-03-18":{"name":"The Long Remembered )" +
                                                       std::string(country) +
                                                       R"( Anniversary of the Constitution"})");
                           }
                       }});
    scene.store->format = HourFormat::h12;
    for (const bool proposed : {false, true}) {
        if (proposed) scene.store->propose(15);
        expectTidy(scene);
        const std::vector<Line> all = lines(scene.placed());
        const Line* notes = lineStarting(
            all, "The Long Remembered GB Anniversary of the Constitution in Washington");
        ASSERT_NE(notes, nullptr);
        EXPECT_GT(notes->rect.right(), 1140) << "the line must use the room there is";
    }
    const kit::Placed root = scene.placed();
    EXPECT_NE(kit::dump(root).find("[28 440 1140 "), std::string::npos) << "the bar";
}

TEST(RibbonLayout, NamesComeBeforeChips) {
    RibbonScene scene({.config = longNames()});
    const std::vector<Line> all = lines(scene.placed());
    const Line* home = lineStarting(all, "London");
    const Line* endless = lineStarting(all, "Krung");
    const Line* chip = lineStarting(all, "Day off");
    ASSERT_TRUE(home && endless && chip);
    EXPECT_EQ(home->rect.height(), chip->rect.height() + 5) << "15 and 11 points";
    EXPECT_GT(endless->rect.width(), 90);
    EXPECT_LE(endless->rect.right(), 264);
}

TEST(RibbonLayout, GrowsWithItsRowsOnly) {
    const auto height = [](const std::function<void(Store&)>& prepare) {
        return RibbonScene({.prepare = prepare}).placed().rect.height();
    };
    const double plain = height({});
    EXPECT_EQ(plain - height([](Store& store) { store.toggleHidden(store.rows().at(1)); }), 30);
    EXPECT_EQ(height([](Store& store) { store.format = HourFormat::utc; }) - plain, 64);
    EXPECT_EQ(height([](Store& store) { store.hoverCol = 3; }), plain);
    EXPECT_EQ(height([](Store& store) { store.flash = "Copied"; }), plain);
    // Stripe, grid, bar of one line, hints: 6 + (40 + 184) + (18 + 46) + (12 + text + 14).
    EXPECT_NEAR(plain, 320 + kit::metrics(kit::Font{"Hanken Grotesk", 12}).lineHeight, 2);
}

}  // namespace
}  // namespace noonward::test
