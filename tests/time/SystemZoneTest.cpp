#include "time/SystemZone.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "support/LibraryZone.h"
#include "support/TempFolder.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;

/// A folder stands for the root of a computer's files.
class SystemZoneTest : public testing::Test {
 protected:
    void link(const char* from, const char* to) {
        write(from, {});
        fs::remove(root_ / from);
        fs::create_symlink(to, root_ / from);
    }
    void write(const char* name, std::string_view text) {
        fs::remove(root_ / name);
        test::writeText(root_ / name, text);
    }
    std::string zone(const char* variable = nullptr) const {
        return systemZone(root_.path(), variable).identifier();
    }

    test::TempFolder root_;
};

TEST_F(SystemZoneTest, FollowsTheVariableThenTheLinkThenTheFile) {
    EXPECT_EQ(zone(), "UTC");
    write("etc/timezone", "  Asia/Tokyo \nEurope/Rome\n");
    EXPECT_EQ(zone(), "Asia/Tokyo");
    link("etc/localtime", "/usr/share/zoneinfo/Europe/Paris");
    EXPECT_EQ(zone(), "Europe/Paris");
    EXPECT_EQ(zone("America/Lima"), "America/Lima");
    EXPECT_EQ(zone(":America/Lima"), "America/Lima");
    for (const char* unknown : {"", ":", "::America/Lima", "Factory", "EST5", "/etc/localtime"}) {
        EXPECT_EQ(zone(unknown), "Europe/Paris") << unknown;
    }
}

TEST_F(SystemZoneTest, ReadsEveryKindOfLink) {
    write("etc/timezone", "Asia/Tokyo");
    link("usr/share/zoneinfo/America/Montreal", "Toronto");
    link("etc/current", "../usr/share/zoneinfo/US/Central");
    const std::pair<const char*, const char*> rows[] = {
        {"/usr/share/zoneinfo/America/Argentina/Ushuaia", "America/Argentina/Ushuaia"},
        {"../usr/share/zoneinfo/Asia/Calcutta", "Asia/Calcutta"},
        {"/usr/share/zoneinfo/posix/Europe/Oslo", "Europe/Oslo"},
        {"/usr/share/zoneinfo/right/Europe/Oslo", "Europe/Oslo"},
        {"/snap/base/zoneinfo/Etc/UTC", "Etc/UTC"},
        {"/usr/share/zoneinfo/America/Montreal", "America/Montreal"},  // not where that points
        {"current", "US/Central"},
        {"/etc/current", "US/Central"},
        {"localtime", "Asia/Tokyo"},  // a circle
        {"/usr/share/zoneinfo/Factory", "Asia/Tokyo"},
        {"/usr/share/zoneinfo/", "Asia/Tokyo"},
        {"/nowhere", "Asia/Tokyo"},
    };
    for (const auto& [target, identifier] : rows) {
        link("etc/localtime", target);
        EXPECT_EQ(zone(), identifier) << target;
    }
    write("etc/localtime", "TZif2");
    EXPECT_EQ(zone(), "Asia/Tokyo") << "a copy of a zone's file does not tell its name";
}

TEST(ComputerZone, HoldsTheZoneUntilReset) {
    test::LibraryZone library("Asia/Tokyo");
    ComputerZone computer;
    EXPECT_EQ(computer.current().identifier(), "Asia/Tokyo");
    library.set("Europe/Paris");
    EXPECT_EQ(computer.current().identifier(), "Asia/Tokyo");
    computer.resetSystemTimeZone();
    EXPECT_EQ(computer.current().identifier(), "Europe/Paris");
}

}  // namespace
}  // namespace noonward
