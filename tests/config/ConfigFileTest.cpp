#include "config/ConfigFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "config/ConfigHome.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using test::ConfigHome;
using test::exampleConfig;
using test::kolkata;
using test::readText;
using test::writeText;
using Texts = std::vector<std::string>;

enum class Outcome { kept, rewritten, refused };

TEST(ConfigFileTest, LoadDecidesWhetherToRewrite) {
    const struct {
        const char* name;
        std::function<void(Json&)> stored;    // how the file differs from the example's
        std::function<void(Config&)> loaded;  // how what is loaded does
        Outcome outcome;
    } cases[] = {
        {"current form", [](Json&) {}, [](Config&) {}, Outcome::kept},
        {"travel kept",
         [](Json& j) {
             j["travel"] = {{"zone", "Asia/Tokyo"}, {"here", true}};
         },
         [](Config& c) {
             c.travel = Travel{"Asia/Tokyo", true};
         },
         Outcome::kept},
        {"unknown keys stay", [](Json& j) { j["later"] = 1; }, [](Config&) {}, Outcome::kept},
        {"null is present", [](Json& j) { j["rolling"] = nullptr; }, [](Config&) {}, Outcome::kept},
        {"key missing", [](Json& j) { j.erase("rolling"); }, [](Config&) {}, Outcome::rewritten},
        {"favourites called notch",
         [](Json& j) {
             j.erase("favourites");
             j["notch"] = {"Pune", "rome"};
         },
         [](Config& c) {
             c.favourites = {"Pune", "rome"};
         },
         Outcome::rewritten},
        {"notch beside favourites", [](Json& j) { j["notch"] = {"Rome"}; }, [](Config&) {},
         Outcome::kept},
        {"home is not first",
         [](Json& j) {
             j["places"][0].erase("home");
             j["places"][1]["home"] = true;
         },
         [](Config& c) {
             c.places = {c.places[1], c.places[0], c.places[2]};
             c.places[0].home = true;
             c.places[1].home.reset();
             c.favourites = {"Oslo", "Pune"};
         },
         Outcome::rewritten},
        {"two homes, the first in front", [](Json& j) { j["places"][1]["home"] = true; },
         [](Config&) {}, Outcome::kept},
        {"no home", [](Json& j) { j["places"][0].erase("home"); }, [](Config&) {}, Outcome::kept},
        {"home false", [](Json& j) { j["places"][2]["home"] = false; }, [](Config&) {},
         Outcome::kept},
        {"favourite in another spelling", [](Json& j) { j["favourites"][0] = "PUNE"; },
         [](Config&) {}, Outcome::rewritten},
        {"one favourite too many", [](Json& j) { j["favourites"].push_back("Rome"); },
         [](Config&) {}, Outcome::rewritten},
        {"unknown favourites", [](Json& j) { j["favourites"] = {"Atlantis"}; },
         [](Config& c) { c.favourites = {"Pune"}; }, Outcome::rewritten},
        {"no places", [](Json& j) { j["places"] = Json::array(); },
         [](Config& c) { c = Config::defaults(kolkata()); }, Outcome::rewritten},
        {"places missing", [](Json& j) { j.erase("places"); },
         [](Config& c) {
             c.places = Config::defaults(kolkata()).places;
             c.favourites = {"Bangalore"};
         },
         Outcome::rewritten},
        {"wrong type", [](Json& j) { j["meetingMinutes"] = "60"; }, {}, Outcome::refused},
        {"place without zone", [](Json& j) { j["places"][2].erase("zone"); }, {}, Outcome::refused},
        {"no object", [](Json& j) { j = Json::array({j}); }, {}, Outcome::refused},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Json json = Json::parse(encodeConfig(exampleConfig()));
        test.stored(json);
        // Another layout than ours, so that rewriting shows.
        const std::string before = json.dump();
        ConfigHome home;
        writeText(home.paths.file, before);

        Config expected = exampleConfig();
        if (test.outcome == Outcome::refused)
            expected = Config::defaults(kolkata());
        else
            test.loaded(expected);
        EXPECT_EQ(home.load(), expected);
        EXPECT_EQ(home.text(),
                  test.outcome == Outcome::rewritten ? encodeConfig(expected) : before);
        EXPECT_EQ(home.load(), expected);
        EXPECT_EQ(home.names(), Texts{"places.json"});
    }
}

TEST(ConfigFileTest, AFirstRunStoresDefaults) {
    ConfigHome home;
    EXPECT_EQ(home.load(), Config::defaults(kolkata()));
    EXPECT_EQ(home.text(), encodeConfig(Config::defaults(kolkata())));
    EXPECT_EQ(home.file.load(TimeZone::utc()), Config::defaults(kolkata()));
}

TEST(ConfigFileTest, AnOlderFileIsAdoptedWhereThereIsNone) {
    const std::string current = Json::parse(encodeConfig(exampleConfig())).dump();
    Json older = Json::parse(current);
    older["notch"] = older["favourites"];
    older.erase("favourites");
    Config other = exampleConfig();
    other.places.pop_back();

    const struct {
        const char* name;
        std::string file;  // empty: none
        std::string oldFile;
        Config loaded;
        std::string after;
    } cases[] = {
        {"as it is", "", current, exampleConfig(), current},
        {"in an old form", "", older.dump(), exampleConfig(), encodeConfig(exampleConfig())},
        {"useless", "", "{not JSON", Config::defaults(kolkata()), "{not JSON"},
        {"file there", encodeConfig(other), current, other, encodeConfig(other)},
        {"useless file there", "oops", current, Config::defaults(kolkata()), "oops"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        if (!test.file.empty()) writeText(home.paths.file, test.file);
        writeText(home.paths.oldFile, test.oldFile);
        EXPECT_EQ(home.load(), test.loaded);
        EXPECT_EQ(home.text(), test.after);
        EXPECT_EQ(readText(home.paths.oldFile), test.oldFile);
    }
}

TEST(ConfigFileTest, ReadOnlyAccessChangesNothing) {
    Json untidy = Json::parse(encodeConfig(exampleConfig()));
    untidy.erase("rolling");
    const struct {
        const char* name;
        std::vector<std::pair<std::string, std::string>> files;
        Config loaded;
    } cases[] = {
        {"nothing there", {}, Config::defaults(kolkata())},
        {"old form", {{"data/Noonward/places.json", untidy.dump()}}, exampleConfig()},
        {"old place", {{".config/zones/places.json", untidy.dump()}}, exampleConfig()},
        {"interrupted save",
         {{"data/Noonward/places.json", "{\"a"},
          {"data/Noonward/places.json.saving", encodeConfig(exampleConfig())}},
         exampleConfig()},
        {"interrupted before it was whole",
         {{"data/Noonward/places.json", untidy.dump()},
          {"data/Noonward/places.json.saving", "{\"a"}},
         exampleConfig()},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        for (const auto& [name, text] : test.files)
            writeText(home.folder / name, text);
        ConfigFile file(home.paths, ConfigFile::Access::readOnly);
        EXPECT_EQ(file.load(kolkata()), test.loaded);
        file.save(exampleConfig());
        for (const auto& [name, text] : test.files)
            EXPECT_EQ(readText(home.folder / name), text);
        const auto all = fs::recursive_directory_iterator(home.folder.path());
        EXPECT_EQ(static_cast<std::size_t>(std::count_if(
                      begin(all), end(all), [](const auto& e) { return !e.is_directory(); })),
                  test.files.size());
    }
}

TEST(ConfigFileTest, PathsFollowTheBaseDirectoryRules) {
    const struct {
        const char* data;
        const char* home;
        const char* file;
        const char* oldFile;
    } cases[] = {
        {"/d", "/h", "/d/Noonward/places.json", "/h/.config/zones/places.json"},
        {nullptr, "/h", "/h/.local/share/Noonward/places.json", "/h/.config/zones/places.json"},
        {"", "/h", "/h/.local/share/Noonward/places.json", "/h/.config/zones/places.json"},
        {"d/e", "/h", "/h/.local/share/Noonward/places.json", "/h/.config/zones/places.json"},
        {"/d", nullptr, "/d/Noonward/places.json", ""},
        {"d", "h", "", ""},
        {nullptr, nullptr, "", ""},
    };
    for (const auto& test : cases) {
        const ConfigPaths paths = configPaths(test.data, test.home);
        EXPECT_EQ(paths.file, test.file);
        EXPECT_EQ(paths.oldFile, test.oldFile);
    }
    ConfigFile nowhere{ConfigPaths{}};
    nowhere.save(exampleConfig());
    EXPECT_EQ(nowhere.load(kolkata()), Config::defaults(kolkata()));
}

TEST(ConfigFileTest, SavingKeepsTheFileItself) {
    ConfigHome home;
    const fs::path real = home.folder / "elsewhere/real.json";
    Config longer = exampleConfig();
    longer.places.push_back({.label = std::string(5000, 'x')});
    writeText(real, encodeConfig(longer));
    fs::permissions(real, fs::perms::owner_all | fs::perms::group_read);
    fs::create_directories(home.paths.file.parent_path());
    fs::create_symlink(real, home.paths.file);
    fs::create_hard_link(real, home.folder / "twin");

    for (const Config& config : {exampleConfig(), longer, exampleConfig()}) {
        home.file.save(config);
        EXPECT_EQ(readText(home.folder / "twin"), encodeConfig(config));
        EXPECT_EQ(home.load(), config);
    }
    EXPECT_EQ(fs::read_symlink(home.paths.file), real);
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_all | fs::perms::group_read);
}

TEST(ConfigFileTest, ASaveWaitsForTheDiskOnce) {
    ConfigHome home;
    home.load();  // saves defaults
    EXPECT_EQ(home.operations.waits(), 1);
    home.file.save(exampleConfig());
    EXPECT_EQ(home.operations.waits(), 2);
    home.load();
    EXPECT_EQ(home.operations.waits(), 2);
}

TEST(ConfigFileTest, ALinkThatLeadsNowhereIsWrittenThrough) {
    ConfigHome home;
    const fs::path real = home.folder / "mounted/real.json";
    fs::create_directories(home.paths.file.parent_path());
    fs::create_symlink(real, home.paths.file);
    EXPECT_EQ(home.load(), Config::defaults(kolkata()));  // the folder behind it is not there
    EXPECT_EQ(home.names(), Texts{"places.json"});
    fs::create_directories(real.parent_path());
    home.file.save(exampleConfig());
    EXPECT_EQ(readText(real), encodeConfig(exampleConfig()));
    EXPECT_TRUE(fs::is_symlink(home.paths.file));
}

}  // namespace
}  // namespace noonward
