#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QImage>
#include <QProcess>
#include <filesystem>
#include <map>

#include "support/TempFolder.h"

// Runs the built program as a person would and looks at what it leaves behind.

namespace noonward::test {
namespace {

namespace fs = std::filesystem;

// Every file below a folder with its bytes and its time of change.
using Contents = std::map<std::string, std::pair<std::string, fs::file_time_type>>;

Contents contents(const fs::path& folder) {
    Contents result;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        result[entry.path()] = {entry.is_regular_file() ? readText(entry.path()) : "",
                                entry.last_write_time()};
    }
    return result;
}

constexpr const char* twoPlaces = R"({"places":[
    {"label":"New York","short":"NYC","zone":"America/New_York"},
    {"label":"London","short":"LON","zone":"Europe/London","home":true},
    {"label":"San Francisco","short":"SF","zone":"America/Los_Angeles"}],
    "notch":["San Francisco"]})";

class Snapshot : public testing::Test {
 protected:
    void SetUp() override { fs::create_directories(data() / "Noonward"); }

    fs::path data() const { return folder_.path() / "data"; }
    fs::path home() const { return folder_.path() / "home"; }
    fs::path config() const { return data() / "Noonward" / "places.json"; }
    std::string picture(const char* name) const { return folder_.path() / name; }

    // Runs the program with no display and gives its exit status; it must have nothing to say.
    int run(const std::map<std::string, std::string>& variables) {
        QProcess process;
        QProcessEnvironment environment;
        environment.insert("PATH", "/usr/bin:/bin");
        environment.insert("XDG_DATA_HOME", QString::fromStdString(data()));
        environment.insert("HOME", QString::fromStdString(home()));
        environment.insert("TZ", "Europe/London");
        for (const auto& [name, value] : variables) {
            environment.insert(QString::fromStdString(name), QString::fromStdString(value));
        }
        process.setProcessEnvironment(environment);
        process.start(NOONWARD_PROGRAM);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said_ = process.readAllStandardError().toStdString();
        return process.exitCode();
    }

    TempFolder folder_;
    std::string said_;
};

TEST_F(Snapshot, DrawsTheRibbonAndTouchesNothing) {
    // An old file that any other run would rewrite, and one from before that it would adopt.
    writeText(config(), twoPlaces);
    writeText(home() / ".config" / "zones" / "places.json", twoPlaces);
    writeText(data() / "Noonward" / "places.json.saving", "{ half a fi");
    const Contents before = contents(data());

    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("a.png")},
                   {"NOONWARD_MINUTES", "30"},
                   {"NOONWARD_TIME", "9am nyc"},
                   {"NOONWARD_TRAVEL", "here"},
                   {"NOONWARD_ROLL", "1"}}),
              0);
    EXPECT_EQ(said_, "");
    const QImage image(QString::fromStdString(picture("a.png")));
    EXPECT_EQ(image.width(), 2392);
    EXPECT_EQ(contents(data()), before);

    // One place fewer is one row, 56 points and a gap of 8, less.
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("b.png")}}), 0);
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("c.png")}, {"NOONWARD_FIVE", ""}}), 0);
    EXPECT_EQ(QImage(QString::fromStdString(picture("b.png"))).height() -
                  QImage(QString::fromStdString(picture("c.png"))).height(),
              128);
    EXPECT_EQ(contents(data()), before);
}

TEST_F(Snapshot, NamesADisplayThatCannotBeOpened) {
    EXPECT_EQ(run({{"DISPLAY", ":4711"}}), 1);
    EXPECT_EQ(said_, "noonward: the X display \":4711\" cannot be opened\n");
}

TEST_F(Snapshot, ReadsTheOlderFileWhereItLies) {
    writeText(home() / ".config" / "zones" / "places.json", twoPlaces);
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("a.png")}}), 0);
    EXPECT_FALSE(fs::exists(config()));
    fs::remove_all(home());
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("b.png")}}), 0);
    // Three places of theirs against four by default.
    EXPECT_EQ(QImage(QString::fromStdString(picture("b.png"))).height() -
                  QImage(QString::fromStdString(picture("a.png"))).height(),
              128);
}

TEST_F(Snapshot, DrawsTheNotchOpenedOut) {
    EXPECT_EQ(run({{"NOONWARD_NOTCH", picture("notch.png")}, {"NOONWARD_UPDATE", "1.2"}}), 0);
    const QImage image(QString::fromStdString(picture("notch.png")));
    // 184 points of notch, two ears and shoulders, as thick as a status bar; 30 points around it.
    EXPECT_EQ(image.size(), 2 * QSize(184 + 2 * (92 + 7) + 60, 24 + 60));
    EXPECT_EQ(image.pixelColor(10, 10), QColor(0x3A, 0x4A, 0x5A));
    EXPECT_EQ(image.pixelColor(image.width() / 2, 70), QColor(0, 0, 0));
    EXPECT_FALSE(fs::exists(picture("a.png")));
}

TEST_F(Snapshot, DrawsEachPictureInItsTurn) {
    const char* const outputs[] = {"NOONWARD_SNAPSHOT", "NOONWARD_SETTINGS", "NOONWARD_WELCOME",
                                   "NOONWARD_NOTCH"};
    std::map<std::string, std::string> all;
    for (const char* output : outputs)
        all[output] = picture(output);
    EXPECT_EQ(run(all), 0);
    std::vector<QSize> sizes;
    for (const char* output : outputs)
        sizes.push_back(QImage(QString::fromStdString(picture(output))).size());
    EXPECT_EQ(sizes[0].width(), 2 * 1196);
    EXPECT_EQ(sizes[1], 2 * QSize(1196, 6 + 540));
    EXPECT_EQ(sizes[2].width(), 2 * 620);
    // Of two that go to one place the later one stays.
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_EQ(run({{outputs[i - 1], picture("one.png")}, {outputs[i], picture("one.png")}}), 0);
        EXPECT_EQ(QImage(QString::fromStdString(picture("one.png"))).size(), sizes[i]);
        EXPECT_NE(sizes[i], sizes[i - 1]);
    }
    // One that cannot be written keeps none of the others back.
    EXPECT_EQ(run({{"NOONWARD_SETTINGS", "/nowhere/at/all.png"},
                   {"NOONWARD_WELCOME", picture("last.png")}}),
              0);
    EXPECT_TRUE(fs::exists(picture("last.png")));
    EXPECT_EQ(said_, "");
}

TEST_F(Snapshot, FillsWhatIsBehindTheSettings) {
    const std::pair<bool, QColor> schemes[] = {{false, {0x08, 0x1E, 0x32}},
                                               {true, {0xF5, 0xF8, 0xFB}}};
    for (const auto& [light, colour] : schemes) {
        std::map<std::string, std::string> variables = {
            {"NOONWARD_SETTINGS", picture("settings.png")},
            {"NOONWARD_WELCOME", picture("welcome.png")}};
        if (light) variables["NOONWARD_LIGHT"] = "";
        EXPECT_EQ(run(variables), 0);
        const QImage settings(QString::fromStdString(picture("settings.png")));
        const QImage welcome(QString::fromStdString(picture("welcome.png")));
        EXPECT_EQ(settings.pixelColor(settings.rect().bottomLeft()), colour) << "outside a corner";
        EXPECT_EQ(settings.pixelColor(10, settings.height() / 2), colour);
        EXPECT_EQ(welcome.pixelColor(welcome.rect().bottomLeft()).alpha(), 0);
        EXPECT_EQ(welcome.pixelColor(10, welcome.height() / 2), colour);
    }
}

TEST_F(Snapshot, ShowsTheSettingsAsTheyAreAskedFor) {
    writeText(config(), twoPlaces);
    const auto draw = [&](const std::map<std::string, std::string>& variables) {
        std::map<std::string, std::string> all = variables;
        all["NOONWARD_SETTINGS"] = picture("settings.png");
        all["TZ"] = "Asia/Tokyo";
        EXPECT_EQ(run(all), 0);
        return QImage(QString::fromStdString(picture("settings.png")));
    };
    // The clocks in it may go on from one picture to the next: what differs must be more than that.
    const auto differs = [&](const QImage& a, const QImage& b) {
        long pixels = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x)
                pixels += a.pixel(x, y) != b.pixel(x, y);
        }
        return pixels > 10'000;
    };
    const QImage plain = draw({});
    EXPECT_TRUE(differs(plain, draw({{"NOONWARD_EDIT", "1"}})));
    EXPECT_TRUE(differs(plain, draw({{"NOONWARD_QUERY", "united"}})));
    for (const char* nobody : {"3", "-1", "1x", "", "99999999999"})
        EXPECT_FALSE(differs(plain, draw({{"NOONWARD_EDIT", nobody}}))) << nobody;
    EXPECT_EQ(said_, "");
}

TEST_F(Snapshot, QuitsWhateverItIsGiven) {
    EXPECT_EQ(run({{"NOONWARD_WELCOME", ""}}), 0);
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", ""}}), 0);
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", "/nowhere/at/all.png"}}), 0);
    EXPECT_EQ(::mkfifo(picture("pipe").c_str(), 0600), 0);
    EXPECT_EQ(run({{"NOONWARD_WELCOME", picture("pipe")}}), 0);
    EXPECT_EQ(said_, "");
    writeText(config(), "{\"places\": [[[");
    EXPECT_EQ(run({{"NOONWARD_SNAPSHOT", picture("a.png")},
                   {"NOONWARD_COL", "12x"},
                   {"NOONWARD_MINUTES", "99999999999"},
                   {"NOONWARD_TIME", "\xFF\xFE \x01"},
                   {"NOONWARD_FORMAT", "13h"},
                   {"NOONWARD_HIDE", ",,,\xC3,"},
                   {"TZ", "Not/A_Zone"}}),
              0);
    EXPECT_EQ(QImage(QString::fromStdString(picture("a.png"))).width(), 2392);
}

TEST_F(Snapshot, WithoutDisplayOrPictureItSaysSoAndStops) {
    EXPECT_EQ(run({}), 1);
    EXPECT_EQ(std::count(said_.begin(), said_.end(), '\n'), 1) << said_;
}

}  // namespace
}  // namespace noonward::test
