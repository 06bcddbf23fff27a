#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDateTime>
#include <QRegularExpression>
#include <filesystem>

#include "live/Desktop.h"
#include "live/ScreenReader.h"

namespace noonward::test {
namespace {

/// Somebody who has the screen read out.
class ReaderStory : public Desktop {
 protected:
    using Thing = ScreenReader::Thing;

    ReaderStory() {
        std::filesystem::create_directories(folder / "run");
        std::filesystem::permissions(folder / "run", std::filesystem::perms::owner_all);
        announced["XDG_RUNTIME_DIR"] = folder / "run";
        announced["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
        service_.emplace(std::vector<std::string>{"/usr/libexec/at-spi-bus-launcher",
                                                  "--launch-immediately", "--a11y=1"},
                         environment());
        SessionBus session(bus.address());
        see("the readers' bus", [&] {
            return session.connection().interface()->isServiceRegistered("org.a11y.Bus").value();
        });
        reader.emplace(bus.address());
    }

    Thing await(const QString& role, const QString& name) {
        std::optional<Thing> found;
        see(role.toStdString() + " " + name.toStdString(), [&] {
            found = reader->find(role, name);
            return found.has_value();
        });
        return *found;
    }
    void seeName(const Thing& thing, const QString& name) {
        see(name.toStdString(), [&] { return reader->name(thing) == name; });
    }
    void press(const QString& role, const QString& name) {
        const Thing button = await(role, name);
        const bool isToggle = role == "radio button" || role == "check box";
        EXPECT_TRUE(reader->act(button, isToggle ? "Toggle" : "Press")) << name.toStdString();
    }
    void tabTo(const QString& name) {
        for (int step = 0; step < 40; ++step) {
            const QString before = reader->focused();
            if (before.startsWith(name)) return;
            hand.key("Tab");
            see("the focus elsewhere", [&] { return reader->focused() != before; });
        }
        FAIL() << name.toStdString() << " is not reached";
    }

    QString home() const {
        const nlohmann::json whole = config();
        return QString::fromStdString(whole["places"][0]["label"]);
    }

    int count_ = 0;
    QCoreApplication application_{count_, nullptr};
    std::optional<Process> service_;
    std::optional<ScreenReader> reader;
};

/// Yesterday, today and tomorrow, wherever it is today.
nlohmann::json daysAround() {
    const QDate today = QDateTime::currentDateTimeUtc().date();
    auto days = nlohmann::json::array();
    for (const int away : {-1, 0, 1})
        days.push_back(today.addDays(away).toString(Qt::ISODate).toStdString());
    return days;
}

TEST_F(ReaderStory, HearsTheRibbonAndWorksIt) {
    auto places = config()["places"];
    places[1]["daysOff"] = daysAround();
    places[1]["workdays"] = {1, 2, 3, 4, 5, 6, 7};
    configure({{"places", places}});
    launch();
    openRibbon();
    const Thing row = await("row", home());
    const Thing off = await("row", "New York");
    const QString spoken = R"(, \d\d:\d\d, \w{3} \d+ \w{3})";
    EXPECT_TRUE(reader->name(row).contains(QRegularExpression('^' + home() + spoken)));
    EXPECT_TRUE(reader->name(off).contains(QRegularExpression("^New York" + spoken + ", Day off$")))
        << reader->name(off).toStdString();
    EXPECT_TRUE(reader->find(off, "cell", "12, day off"));

    // An hour is proposed, and moved as a number. What a reader holds outlives every rebuild.
    const auto ten = reader->find(row, "cell", "10, ");
    ASSERT_TRUE(ten);
    EXPECT_TRUE(reader->act(*ten, "Press"));
    const Thing proposal = await("slider", "Proposed time, 10:00–11:00");
    EXPECT_EQ(reader->value(proposal), 600);
    reader->setValue(proposal, 905);
    seeName(proposal, "Proposed time, 15:05–16:05 " + home());
    EXPECT_TRUE(reader->act(proposal, "Decrease"));
    seeName(proposal, "Proposed time, 15:00–16:00 " + home());
    press("radio button", "15 minutes");
    seeName(proposal, "Proposed time, 15:00–15:15 " + home());
    EXPECT_TRUE(reader->isChecked(await("radio button", "15 minutes")));
    EXPECT_FALSE(reader->isChecked(await("radio button", "1 hour")));

    press("push button", "Next day");
    await("push button", "Today");
    EXPECT_FALSE(reader->find("push button", "no such button"));
}

// Each of them by the keys alone; and with the focus on it, the letters do what they always do.
TEST_F(ReaderStory, TheKeysReachEveryButton) {
    configure({{"homeZones", {"Asia/Tokyo"}}});
    launch();
    openRibbon();
    hand.key("f");
    const Thing proposal = await("slider", "Proposed time");
    tabTo("45 minutes");
    hand.key(" ");
    see("the length",
        [&] { return reader->isChecked(*reader->find("radio button", "45 minutes")); });
    const double before = reader->value(proposal);
    hand.key("l");
    see("an hour later", [&] { return reader->value(proposal) == before + 60; });
    takeClipboard();
    tabTo("Copy for email");
    hand.key(" ");
    see("an email", [this] { return !hasClipboard(); });
    see("what is said about it",
        [&] { return reader->notices().join('\n').startsWith("Copied "); });
    hand.key("c");
    see("and about what replaces it",
        [&] { return reader->notices().join('\n').contains("Copied the times as text"); });

    hand.key("]");
    tabTo("Today");
    hand.key(" ");
    see("today", [&] { return !reader->find("push button", "Today"); });
    tabTo("Hide New York");
    hand.key(" ");
    see("a hidden row", [&] { return !reader->find("row", "New York"); });
    tabTo("New York hidden");
    hand.key(" ");
    await("row", "New York");
}

TEST_F(ReaderStory, HearsTheSettingsAndTheMenu) {
    launch();
    hoverNotch();
    openRibbon();
    hand.key("s");
    press("radio button", "Light");
    see("the light appearance", [this] { return config()["appearance"] == "light"; });
    EXPECT_TRUE(reader->isChecked(await("radio button", "Light")));
    EXPECT_FALSE(reader->isChecked(await("check box", "Open at login")));
    EXPECT_TRUE(reader->isEditable(await("text", "Name of New York")));
    EXPECT_FALSE(reader->actions(await("push button", "Remove, " + home())).contains("Press"));
    press("push button", "Remove, New York");
    see("it gone", [this] { return config()["places"].size() == 1; });

    const Thing ears = await("push button", "Noonward, " + home() + ' ');
    EXPECT_TRUE(reader->act(ears, "ShowMenu"));
    see("the menu", [this] { return menu(); });
    hand.key("Up");
    see("its last line in the focus", [&] { return reader->focused() == "Quit Noonward"; });
    // Held: at its end Qt leaks its copy of a key that the readers are still being told of.
    hand.pressKey(hand.codeOf("Return"));
    EXPECT_EQ(exitStatus(), 0);
}

}  // namespace
}  // namespace noonward::test
