#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <string>

#include "config/ConfigHome.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;
using test::ConfigHome;
using test::exampleConfig;
using test::kolkata;
using test::readText;
using test::writeText;
using Texts = std::vector<std::string>;

Config defaults() {
    return Config::defaults(kolkata());
}

// Bytes that are no configuration: kept until the next save, and put aside by it.
TEST(HostileFilesTest, WhatCannotBeDecodedIsPutAsideByTheNextSave) {
    const std::string longKey = "{\"" + std::string(200'000, 'k') + "\":0}";
    const struct {
        const char* name;
        std::string text;
    } cases[] = {
        {"no JSON", "hello"},
        {"half of a file", encodeConfig(exampleConfig()).substr(0, 300)},
        {"an error near the end of defaults edited by hand",
         [] {
             std::string text = encodeConfig(defaults());
             return text.insert(text.rfind(']'), ",");
         }()},
        {"a NUL and more", encodeConfig(exampleConfig()) + std::string("\0notes", 6)},
        {"all zero", std::string(4096, '\0')},
        {"ill-formed UTF-8", "{\"hourFormat\":\"\xC3\x28\"}"},
        {"UTF-16", std::string("\xFF\xFE{\0}\0", 6)},
        {"a huge number", "{\"meetingMinutes\":" + std::string(100'000, '9') + "}"},
        {"10,000 brackets", std::string(10'000, '[')},
        {"1,000,000 brackets", std::string(1'000'000, '[')},
        {"200,000 objects",
         [] {
             std::string text;
             for (int i = 0; i < 200'000; ++i)
                 text += "{\"\":";
             return text;
         }()},
        // NOLINTNEXTLINE(bugprone-string-constructor): it is meant to be large.
        {"above the size that is read", std::string(50'000'000, ' ') + longKey},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        writeText(home.paths.file, test.text);
        EXPECT_EQ(home.load(), defaults());
        EXPECT_TRUE(home.text() == test.text);
        EXPECT_EQ(home.names(), Texts{"places.json"});

        home.file.save(exampleConfig());
        EXPECT_EQ(home.load(), exampleConfig());
        EXPECT_EQ(home.names(), (Texts{"places.json", "places.json.unreadable"}));
        EXPECT_TRUE(readText(home.beside(".unreadable")) == test.text);
    }
}

TEST(HostileFilesTest, WhatWasPutAsideEarlierStays) {
    ConfigHome home;
    for (const char* text : {"one", "two", "two", "three"}) {
        writeText(home.paths.file, text);
        home.file.save(exampleConfig());
    }
    fs::remove(home.paths.file);
    fs::create_directory(home.paths.file);
    home.file.save(exampleConfig());
    EXPECT_EQ(readText(home.beside(".unreadable")), "one");
    EXPECT_EQ(readText(home.beside(".unreadable.2")), "two");
    EXPECT_EQ(readText(home.beside(".unreadable.3")), "three");
    EXPECT_TRUE(fs::is_directory(home.beside(".unreadable.4")));
    EXPECT_EQ(home.names().size(), 5u);
}

TEST(HostileFilesTest, AnEmptyFileLeavesNothingToKeep) {
    ConfigHome home;
    writeText(home.paths.file, "");
    EXPECT_EQ(home.load(), defaults());
    home.file.save(exampleConfig());
    EXPECT_EQ(home.names(), Texts{"places.json"});
}

/// Puts a socket at a path.
void makeSocket(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.native().size(), sizeof address.sun_path);
    std::copy_n(path.c_str(), path.native().size() + 1, address.sun_path);
    const int number = ::socket(AF_UNIX, SOCK_STREAM, 0);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the sockets' own way
    const auto* general = reinterpret_cast<const sockaddr*>(&address);
    EXPECT_EQ(::bind(number, general, sizeof address), 0);
    ::close(number);
}

/// For as long as it lives, permissions count, also for the superuser, who the tests may run as.
class Unprivileged {
 public:
    explicit Unprivileged(const fs::path& folder) : was_(::geteuid()) {
        if (was_ != 0) return;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            EXPECT_EQ(::lchown(entry.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(::lchown(folder.c_str(), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged() { EXPECT_EQ(::seteuid(was_), 0); }

 private:
    static constexpr uid_t nobody = 65534;
    uid_t was_;
};

// Things that cannot be read as a file: moved aside at once, and never opened.
TEST(HostileFilesTest, WhatCannotBeReadMakesWayForDefaults) {
    const struct {
        const char* name;
        std::function<void(const fs::path&)> make;
    } cases[] = {
        {"folder", [](const fs::path& p) { fs::create_directories(p / "in it"); }},
        {"pipe", [](const fs::path& p) { EXPECT_EQ(::mkfifo(p.c_str(), 0600), 0); }},
        {"socket", [](const fs::path& p) { makeSocket(p); }},
        {"link to a device", [](const fs::path& p) { fs::create_symlink("/dev/zero", p); }},
        {"link to the full device", [](const fs::path& p) { fs::create_symlink("/dev/full", p); }},
        {"link to a folder", [](const fs::path& p) { fs::create_symlink("..", p); }},
        {"link to itself", [](const fs::path& p) { fs::create_symlink(p.filename(), p); }},
        {"no permission",
         [](const fs::path& p) {
             writeText(p, "secret");
             fs::permissions(p, fs::perms::none);
         }},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        fs::create_directories(home.paths.file.parent_path());
        test.make(home.paths.file);
        const Unprivileged guard(home.folder.path());
        struct stat before {};
        struct stat after {};
        ASSERT_EQ(::lstat(home.paths.file.c_str(), &before), 0);

        ConfigFile readOnly(home.paths, ConfigFile::Access::readOnly);
        EXPECT_EQ(readOnly.load(kolkata()), defaults());
        EXPECT_EQ(home.names(), Texts{"places.json"});

        EXPECT_EQ(home.load(), defaults());
        EXPECT_EQ(home.text(), encodeConfig(defaults()));
        EXPECT_EQ(home.names(), (Texts{"places.json", "places.json.unreadable"}));
        ASSERT_EQ(::lstat(home.beside(".unreadable").c_str(), &after), 0);
        EXPECT_EQ(before.st_ino, after.st_ino);
        EXPECT_EQ(before.st_mode, after.st_mode);
    }
}

// A save that was never whole, or no save at all, does not stand in the way of the next one.
TEST(HostileFilesTest, LeftoversAtTheSavingNameGo) {
    const std::string stored = encodeConfig(exampleConfig());
    const struct {
        const char* name;
        std::function<void(const fs::path&)> make;
        bool movedAside;
    } cases[] = {
        {"empty", [](const fs::path& p) { writeText(p, ""); }, false},
        {"broken", [&](const fs::path& p) { writeText(p, stored.substr(0, 99)); }, false},
        {"folder", [](const fs::path& p) { fs::create_directories(p / "in it"); }, true},
        {"pipe", [](const fs::path& p) { EXPECT_EQ(::mkfifo(p.c_str(), 0600), 0); }, true},
        {"link", [](const fs::path& p) { fs::create_symlink("/etc/passwd", p); }, true},
        {"far too large", [](const fs::path& p) { writeText(p, std::string(3'000'000, ' ')); },
         true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        writeText(home.paths.file, stored);
        test.make(home.beside(".saving"));
        EXPECT_EQ(home.load(), exampleConfig());
        Texts expected = {"places.json"};
        if (test.movedAside) expected.emplace_back("places.json.unreadable");
        EXPECT_EQ(home.names(), expected);
        EXPECT_EQ(home.text(), stored);
    }
}

TEST(HostileFilesTest, WhereNothingCanBeWrittenEverythingStays) {
    const auto readable = fs::perms::owner_read | fs::perms::owner_exec;
    const std::string stored = encodeConfig(exampleConfig());
    const struct {
        const char* name;
        std::function<void(const ConfigHome&)> protect;
        std::string text;
        Config loaded;
    } cases[] = {
        {"the file", [](const auto& h) { fs::permissions(h.paths.file, fs::perms::owner_read); },
         stored, exampleConfig()},
        {"the folder",
         [&](const auto& h) { fs::permissions(h.paths.file.parent_path(), readable); }, stored,
         exampleConfig()},
        {"the folder of a useless file",
         [&](const auto& h) { fs::permissions(h.paths.file.parent_path(), readable); }, "hello",
         defaults()},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ConfigHome home;
        writeText(home.paths.file, test.text);
        {
            const Unprivileged guard(home.folder.path());
            test.protect(home);
            home.file.save(defaults());
            EXPECT_EQ(home.text(), test.text);
            EXPECT_EQ(home.names(), Texts{"places.json"});
            EXPECT_EQ(home.load(), test.loaded);
            EXPECT_EQ(home.names(), Texts{"places.json"});
            fs::permissions(home.paths.file.parent_path(), fs::perms::owner_all);
        }
    }
}

TEST(HostileFilesTest, AnOlderFileIsAdoptedOnceThatIsPossible) {
    bool goesOn = true;
    for (int at = 0; goesOn; ++at) {
        ConfigHome home;
        writeText(home.paths.oldFile, encodeConfig(exampleConfig()));
        test::FaultyFiles failing(test::FaultyFiles::Fault::fail, at);
        ConfigFile first(home.paths, ConfigFile::Access::readWrite, failing);
        EXPECT_EQ(first.load(kolkata()), exampleConfig()) << at;
        EXPECT_EQ(home.load(), exampleConfig()) << at;
        goesOn = failing.happened();
    }
}

// A limit on file sizes stands for a full disk: it stops a real write half-way.
TEST(HostileFilesTest, AFullDiskLeavesTheOldConfiguration) {
    ConfigHome home;
    home.file.save(exampleConfig());
    const std::string before = home.text();
    Config larger = exampleConfig();
    larger.places.push_back({.label = std::string(10'000, 'x')});

    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{6'000, 6'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        home.file.save(larger);
        ::_exit(0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(home.text(), before);
    EXPECT_EQ(home.names(), Texts{"places.json"});

    larger.places.back().label.resize(2'000'000, 'x');  // more than will ever be read back
    home.file.save(larger);
    EXPECT_EQ(home.load(), exampleConfig());
}

// For a moment nothing can be opened; what lay there unread must survive the saves that follow.
TEST(HostileFilesTest, WhatCouldNotBeReadForAMomentIsNotOverwritten) {
    ConfigHome home;
    home.file.save(exampleConfig());
    const std::string before = home.text();

    const Config withoutFile = defaults();  // reads the zones while files can be opened

    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit none{0, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const Config loaded = home.load();
    home.file.save(loaded);  // which fails: what is there is no more ours than before
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_EQ(loaded, withoutFile);
    EXPECT_EQ(home.text(), before);

    home.file.save(loaded);
    EXPECT_EQ(home.load(), loaded.tidied(kolkata()));
    EXPECT_EQ(readText(home.beside(".unreadable")), before);

    // Once that has happened saves are again nothing but saves.
    home.file.save(exampleConfig());
    EXPECT_EQ(home.names(), (Texts{"places.json", "places.json.unreadable"}));
}

}  // namespace
}  // namespace noonward
