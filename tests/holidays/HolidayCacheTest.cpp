#include "holidays/HolidayCache.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "fakes/FaultyFiles.h"
#include "support/TempFolder.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;
using test::FaultyFiles;
using test::readText;
using test::TempFolder;
using test::writeText;
using Texts = std::vector<std::string>;

CachedHolidays example() {
    return {807'440'400.25, HolidayDays({{{2026, 1, 26}, {"Republic Day"}},
                                         {{2026, 3, 19}, {"Ugadi", "Karnataka, Maharashtra"}}})};
}

const std::string stored =
    R"({"days":{"2026-01-26":{"name":"Republic Day"},)"
    R"("2026-03-19":{"name":"Ugadi","regional":"Karnataka, Maharashtra"}},"fetched":807440400.25})";

TEST(HolidayCacheTest, CountsSecondsFromTheStartOf2001) {
    using namespace std::chrono;
    EXPECT_EQ(secondsSince2001(sys_days(year(2001) / January / 1)), 0);
    EXPECT_EQ(secondsSince2001(sys_days(year(2026) / August / 3) + hours(9) + milliseconds(250)),
              807'440'400.25);
    EXPECT_EQ(secondsSince2001(sys_days(year(2000) / December / 31)), -86'400);
}

TEST(HolidayCacheTest, WritesAndReadsTheFileAsItIsKnown) {
    TempFolder folder;
    writeHolidayCache(folder / "a/b", "IN", example());
    EXPECT_EQ(readText(folder / "a/b/IN.json"), stored);
    EXPECT_EQ(test::namesIn(folder / "a/b"), Texts{"IN.json"});

    writeText(folder / "IN.json", stored);
    const auto read = readHolidayCache(folder.path(), "IN");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->fetched, example().fetched);
    EXPECT_EQ(read->days, example().days);
    EXPECT_FALSE(readHolidayCache(folder.path(), "US"));
    EXPECT_FALSE(readHolidayCache({}, "IN"));
}

TEST(HolidayCacheTest, TakesNothingButACacheFile) {
    const struct {
        std::string text;
        int days;  // -1: no cache
    } cases[] = {
        {R"({"fetched":1,"days":{}})", 0},
        {R"({"fetched":-1.5e300,"days":{},"more":[]})", 0},
        {R"({"fetched":1,"days":{"2026-01-26":{"name":"A","regional":null,"x":1}}})", 1},
        {R"({"fetched":1,"days":{"2026-1-26":{"name":"A"},"zzz":{"name":"B"}}})", 0},
        {R"({"fetched":1,"days":{"2026-01-26":{"name":"A"},"2026-01-26":{"name":"B"}}})", 1},
        {R"({"days":{}})", -1},
        {R"({"fetched":1})", -1},
        {R"({"fetched":"1","days":{}})", -1},
        {R"({"fetched":true,"days":{}})", -1},
        {R"({"fetched":1e999,"days":{}})", -1},
        {R"({"fetched":1,"days":[]})", -1},
        {R"({"fetched":1,"days":{"2026-01-26":{}}})", -1},
        {R"({"fetched":1,"days":{"2026-01-26":{"name":7}}})", -1},
        {R"({"fetched":1,"days":{"2026-01-26":{"name":"A","regional":7}}})", -1},
        {R"({"fetched":1,"days":{"2026-01-26":"A"}})", -1},
        {stored.substr(0, 100), -1},
        {"", -1},
        {"[]", -1},
        {"{\"fetched\":1,\"days\":{\"2026-01-26\":{\"name\":\"\xFF\"}}}", -1},
        {std::string(100'000, '['), -1},
        {std::string(3'000'000, ' '), -1},
    };
    TempFolder folder;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text.substr(0, 100));
        writeText(folder / "IN.json", test.text);
        const auto read = readHolidayCache(folder.path(), "IN");
        ASSERT_EQ(read.has_value(), test.days >= 0);
        if (read) {
            EXPECT_EQ(read->days.size(), static_cast<std::size_t>(test.days));
        }
    }
    fs::remove(folder / "IN.json");
    ASSERT_EQ(::mkfifo((folder / "IN.json").c_str(), 0600), 0);
    EXPECT_FALSE(readHolidayCache(folder.path(), "IN"));
    writeHolidayCache(folder.path(), "IN", example());
    EXPECT_EQ(readText(folder / "IN.json"), stored);
}

TEST(HolidayCacheTest, StoppedOrFailingAnywhereLeavesTheOldFileOrTheNew) {
    CachedHolidays newer = example();
    newer.fetched += 1;
    for (const auto fault : {FaultyFiles::Fault::stop, FaultyFiles::Fault::fail}) {
        int at = 0;
        for (bool happened = true; happened; ++at) {
            SCOPED_TRACE(at);
            TempFolder folder;
            writeHolidayCache(folder.path(), "IN", example());
            FaultyFiles faulty(fault, at, 50);
            writeHolidayCache(folder.path(), "IN", newer, faulty);
            happened = faulty.happened();
            const auto read = readHolidayCache(folder.path(), "IN");
            ASSERT_TRUE(read);
            EXPECT_TRUE(read->fetched == newer.fetched ||
                        (happened && read->fetched == example().fetched));
            EXPECT_EQ(read->days, example().days);
            writeHolidayCache(folder.path(), "IN", newer);
            EXPECT_EQ(test::namesIn(folder.path()), Texts{"IN.json"});
        }
        EXPECT_GT(at, 4);
    }
}

TEST(HolidayCacheTest, DoesNotFollowALinkAtTheSavingName) {
    TempFolder folder;
    writeText(folder / "precious", "text");
    fs::create_symlink(folder / "precious", folder / "IN.json.saving");
    writeHolidayCache(folder.path(), "IN", example());
    EXPECT_EQ(readText(folder / "precious"), "text");
    EXPECT_EQ(readText(folder / "IN.json"), stored);
}

}  // namespace
}  // namespace noonward
