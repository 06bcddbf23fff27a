#include <filesystem>

#include "live/Desktop.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

class NewUserStory : public Desktop {
 protected:
    /// A point of the panel, in points from its corner.
    static QPoint in(double x, double y) {
        return {left + static_cast<int>(x), top + static_cast<int>(y)};
    }
    static constexpr std::uint32_t lightGround = 0xF5F8FB;

    static double row(int index) { return 143 + 60 * index; }  // the middle of a place's row
    static double searchField(int places) { return 161 + 60 * places; }
    static double result(int index, int places) { return searchField(places) + 41 + 33 * index; }
    QPoint star(int index) const { return in(53, row(index)); }
    QPoint house(int index) const { return in(89, row(index)); }
    QPoint removal(int index) const { return in(563, row(index)); }
    QPoint weekOfHome() const { return in(445, row(0)); }
    // Of the week that is open under home.
    QPoint weekday(int fromMonday) const { return in(127.5 + 32 * fromMonday, row(0) + 114); }
    QPoint addDayOff() const { return in(157, row(0) + 221); }

    std::vector<std::string> labels() const {
        std::vector<std::string> all;
        const nlohmann::json whole = config();
        for (const auto& place : whole["places"])
            all.push_back(place["label"]);
        return all;
    }
    void seePlaces(const std::vector<std::string>& wanted) {
        see(nlohmann::json(wanted).dump(), [&] { return labels() == wanted; });
    }
};

TEST_F(NewUserStory, FromAnEmptyHomeFolderToAMeeting) {
    std::filesystem::remove_all(folder / "data");
    // The click is on: the sound library's driver keeps what it has allocated, and is unloaded.
    announced["ASAN_OPTIONS"] = "detect_leaks=0";
    launch();
    see("the welcome", [this] { return isPanelSeen(); });
    hand.key("Tab");
    hand.key(" ");  // choose places
    see("the settings", [this] { return areSettingsSeen(); });
    EXPECT_EQ(config()["welcomed"], true);
    const std::string here = labels().at(0);
    seePlaces({here, "London", "New York", "Singapore"});

    hand.clickAt(removal(3));
    hand.clickAt(removal(2));
    seePlaces({here, "London"});
    hand.clickAt(in(200, searchField(2)));
    hand.type("nairobi");
    hand.key("Tab");
    hand.key(" ");
    seePlaces({here, "London", "Nairobi"});

    const auto isFound = [this](int index) {
        return sight.isBright(QRect(in(44, result(index, 3) - 5), QSize(11, 10)), 50);
    };
    // It glides as it goes.
    see("the list gone", [&] { return staysFor(500ms, [&] { return !isFound(0); }); });
    hand.type("milwaukee");  // the field has the keys again
    // Its first letters alone find more.
    see("the offer to look it up alone", [&] { return isFound(0) && !isFound(1); });
    hand.key("Tab");
    hand.key(" ");  // look it up
    // It, South Milwaukee, and the offer to look further.
    see("cities found", [&] { return isFound(2); });
    hand.key("Tab");
    hand.key(" ");
    seePlaces({here, "London", "Nairobi", "Milwaukee"});
    const nlohmann::json found = config()["places"][3];
    EXPECT_EQ(found["zone"], "America/Chicago");

    hand.clickAt(house(3));
    seePlaces({"Milwaukee", here, "London", "Nairobi"});
    hand.clickAt(star(3));
    see("the favourites", [this] {
        return config()["favourites"] == nlohmann::json{"Milwaukee", "Nairobi"};
    });
    hand.clickAt(weekOfHome());
    hand.clickAt(weekday(4));
    hand.clickAt(weekday(6));
    hand.clickAt(addDayOff());
    see("a week and a day off of its own", [this] {
        const nlohmann::json milwaukee = config()["places"][0];
        return milwaukee.value("workdays", nlohmann::json()) == nlohmann::json{1, 2, 3, 4, 5} &&
               milwaukee.contains("daysOff") && milwaukee["daysOff"].size() == 1;
    });
    hand.clickAt(in(396, 53));
    see("the light appearance", [this] {
        return config()["appearance"] == "light" && sight.colour(in(5, 300)) == lightGround;
    });

    hand.key("Return");
    see("the ribbon", [this] { return isRibbonSeen(); });
    hand.clickAt(hour(10));
    const std::string meeting = copied();
    for (const char* place : {"Milwaukee", "London", "Nairobi"})
        EXPECT_NE(meeting.find(place), std::string::npos) << meeting;
    const auto before = config();
    hand.key("Control+q");
    EXPECT_EQ(exitStatus(), 0);

    launch();
    openRibbon();
    EXPECT_EQ(sight.colour(in(5, 300)), lightGround);
    hand.clickAt(hour(10));
    EXPECT_EQ(copied(), meeting);
    EXPECT_EQ(config(), before);
}

}  // namespace
}  // namespace noonward::test
