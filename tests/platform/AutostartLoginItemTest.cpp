#include "platform/linux/AutostartLoginItem.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/TempFolder.h"

namespace noonward::test {
namespace {

namespace fs = std::filesystem;

class AutostartLoginItemTest : public testing::Test {
 protected:
    AutostartLoginItemTest() { install(program); }

    static void install(const fs::path& file) {
        writeText(file, "#!/bin/sh\n");
        fs::permissions(file, fs::perms::owner_all);
    }
    AutostartLoginItem item(std::vector<std::string> desktops = {"KDE", "Fancy"}) const {
        return AutostartLoginItem({user, {first, second}, std::move(desktops), program});
    }
    static fs::path in(const fs::path& folder) { return folder / "noonward.desktop"; }
    /// An entry that starts, with further lines; "$" is the program.
    std::string entry(std::string lines = "") const {
        lines = "[Desktop Entry]\nType=Application\nExec=$\n" + lines;
        for (std::size_t at = 0; (at = lines.find('$')) != std::string::npos;)
            lines.replace(at, 1, program.string());
        return lines;
    }

    TempFolder folder;
    fs::path program = folder / "bin/noonward";
    fs::path user = folder / "config/autostart";
    fs::path first = folder / "first/autostart";
    fs::path second = folder / "second/autostart";
};

TEST_F(AutostartLoginItemTest, IsOnAsTheEntrySays) {
    struct Case {
        std::string text;
        bool on;
    };
    const Case cases[] = {
        {entry(), true},
        {"\n# mine\n[Desktop Entry]\r\nType = Application\r\nExec = noonward \r\n", true},
        {entry("Hidden=true\n"), false},
        {entry("Hidden=1\n"), false},
        {entry("Hidden=TRUE\n"), true},
        {entry("Hidden=true\nHidden=false\n"), true},
        {entry("X-GNOME-Autostart-enabled=false\n"), false},
        {entry("OnlyShowIn=GNOME;KDE;\n"), true},
        {entry("OnlyShowIn=GNOME;XFCE\n"), false},
        {entry("OnlyShowIn=\n"), true},
        {entry("NotShowIn=Fancy;\n"), false},
        {entry("NotShowIn=GNOME;\n"), true},
        {entry("NotShowIn=Fancy;\nOnlyShowIn=KDE;\n"), true},
        {entry("NotShowIn=KDE;\nOnlyShowIn=Fancy;\n"), false},
        {entry("TryExec=$\n"), true},
        {entry("TryExec=sh\n"), true},
        {entry("TryExec=/nowhere/noonward\n"), false},
        {entry("[Other]\nHidden=true\n"), true},
        {"[Other]\n" + entry(), false},
        {"[Desktop Entry]\nType=Application\n", false},
        {"[Desktop Entry]\nExec=noonward\n", false},
        {"[Desktop Entry]\nType=Link\nExec=noonward\n", false},
        {"", false},
        {std::string("\0\xff=\n[", 5), false},
        {std::string(70'000, '#') + '\n' + entry(), false},
    };
    for (const Case& each : cases) {
        writeText(in(user), each.text);
        EXPECT_EQ(item().enabled(), each.on) << each.text.substr(0, 200);
    }
}

TEST_F(AutostartLoginItemTest, TheMostImportantFolderDecides) {
    EXPECT_FALSE(item().enabled());
    writeText(in(second), entry());
    EXPECT_TRUE(item().enabled());
    writeText(in(first), entry("Hidden=true\n"));
    EXPECT_FALSE(item().enabled());
    writeText(in(user), entry());
    EXPECT_TRUE(item().enabled());
    fs::remove(in(user));
    fs::create_symlink("/dev/null", in(user));
    fs::remove(in(first));
    EXPECT_FALSE(item().enabled()) << "masked";
    fs::remove(in(user));
    ASSERT_EQ(::mkfifo(in(user).c_str(), 0600), 0);
    EXPECT_FALSE(item().enabled()) << "and nobody writes to the pipe";
}

TEST_F(AutostartLoginItemTest, SwitchesWhateverIsThere) {
    const std::string before[] = {"",
                                  "not an entry",
                                  entry(),
                                  entry("Hidden=true\n"),
                                  entry("Hidden=true\nHidden=true\n"),
                                  entry("X-GNOME-Autostart-enabled=false\n[Other]\nA=b\n"),
                                  entry("OnlyShowIn=GNOME;\n"),
                                  entry("NotShowIn=Fancy;KDE;GNOME;\n"),
                                  entry("OnlyShowIn=GNOME;\nNotShowIn=KDE;\n"),
                                  entry("TryExec=/nowhere\n"),
                                  "[Desktop Entry]\nType=Link\nURL=x"};
    for (const auto& desktops : {std::vector<std::string>{"KDE", "Fancy"}, {}}) {
        for (const std::string& text : before) {
            if (text.empty())
                fs::remove(in(user));
            else
                writeText(in(user), text);
            AutostartLoginItem login = item(desktops);
            for (const bool on : {true, false, true, true, false, false}) {
                login.set(on);
                EXPECT_EQ(login.enabled(), on) << text << "\nbecame\n" << readText(in(user));
            }
        }
    }
}

TEST_F(AutostartLoginItemTest, KeepsWhatTheUserAdded) {
    const std::string mine =
        "# mine\n\n[Desktop Entry]\nType=Application\nName=Clocks\nName[de]=Uhr\n"
        "Exec=env LANG=C \"" +
        program.string() + "\" %U\nOnlyShowIn=GNOME;Fancy;\nX-GNOME-Autostart-Delay=5\n";
    const std::string rest = "\n[Desktop Action New]\nHidden=true\nExec=other\n";
    const std::string needs = "TryExec=" + program.string() + '\n';
    writeText(in(user), mine + rest);
    item().set(false);
    EXPECT_EQ(readText(in(user)), mine + "Hidden=true\n" + rest);
    item().set(true);
    EXPECT_EQ(readText(in(user)), mine + needs + rest);
    item({"KDE"}).set(true);
    EXPECT_NE(readText(in(user)).find("OnlyShowIn=GNOME;Fancy;KDE;\n"), std::string::npos);

    for (const char* aside : {".unreadable", ".unreadable.2"}) {
        writeText(in(user), std::string("no entry ") + aside);
        item().set(true);
        EXPECT_EQ(readText(in(user).string() + aside), std::string("no entry ") + aside);
        EXPECT_TRUE(item().enabled());
    }
}

TEST_F(AutostartLoginItemTest, StartsThisCopyAndNoOther) {
    const fs::path older = folder / "older/noonward";
    install(older);
    writeText(in(user), "[Desktop Entry]\nType=Application\nExec=" + older.string() +
                            "\nTryExec=" + older.string() + "\n");
    EXPECT_TRUE(item().enabled());
    item().set(false);
    item().set(true);
    EXPECT_EQ(readText(in(user)).find("older"), std::string::npos) << readText(in(user));
    fs::remove(program);
    EXPECT_FALSE(item().enabled());
}

TEST_F(AutostartLoginItemTest, FollowsALinkToWhereTheFileIs) {
    const fs::path kept = folder / "dotfiles/noonward.desktop";
    writeText(kept, entry("Hidden=true\n"));
    fs::create_directories(user);
    fs::create_symlink(kept, in(user));
    item().set(true);
    EXPECT_TRUE(fs::is_symlink(in(user)));
    EXPECT_NE(readText(kept).find("TryExec"), std::string::npos);
    EXPECT_EQ(namesIn(user).size(), 1U);
    EXPECT_EQ(namesIn(kept.parent_path()).size(), 1U);
}

TEST_F(AutostartLoginItemTest, ARefusalIsSilent) {
    AutostartLoginItem homeless({{}, {}, {}, program});
    homeless.set(true);
    EXPECT_FALSE(homeless.enabled());

    fs::create_directories(in(user));  // a folder where the file should be
    item().set(true);
    EXPECT_FALSE(item().enabled());
    fs::remove_all(user);
    writeText(user, "a file where the folder should be");
    item().set(true);
    EXPECT_FALSE(item().enabled());
    fs::remove(user);
    fs::remove(program);
    item().set(true);
    EXPECT_FALSE(item().enabled());
    EXPECT_FALSE(fs::exists(user));
    writeText(in(user), "no entry");
    item().set(true);
    EXPECT_EQ(readText(in(user)), "no entry");
}

TEST(DesktopEntryTest, QuotesWhatItsReadersWouldTakeForMore) {
    struct Case {
        std::string path;
        std::string line;  // as it stands in the file
    };
    const Case cases[] = {{"/opt/noonward", "/opt/noonward"},
                          {"/my apps/noonward", R"("/my apps/noonward")"},
                          {"/a\"b", R"("/a\\"b")"},
                          {"/a$HOME", R"("/a\\$HOME")"},
                          {"/a`b`", R"("/a\\`b\\`")"},
                          {"/a\\b", R"("/a\\\\b")"},
                          {"/100%", "/100%%"},
                          {"/%u it's", R"("/%%u it's")"},
                          {"/a\nb", R"("/a\nb")"},
                          {"/Zürich;x", R"("/Zürich;x")"}};
    for (const Case& each : cases) {
        DesktopEntry entry;
        entry.set("Exec", execWord(each.path));
        EXPECT_EQ(entry.text(), "[Desktop Entry]\nExec=" + each.line + '\n');
        const auto read = DesktopEntry::parse(entry.text())->string("Exec");
        EXPECT_EQ(execWords(*read), std::vector{each.path});
    }
}

TEST(InstalledTest, IsByItsEntryBesideIt) {
    const TempFolder folder;
    EXPECT_FALSE(isInstalled(folder / "build/noonward"));
    EXPECT_FALSE(isInstalled(folder / "bin/noonward"));
    writeText(folder / "share/applications/noonward.desktop", "");
    EXPECT_TRUE(isInstalled(folder / "bin/noonward"));
    EXPECT_FALSE(isInstalled(folder / "build/noonward"));
    EXPECT_FALSE(isInstalled(""));
}

}  // namespace
}  // namespace noonward::test
