#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <random>
#include <string>
#include <thread>

#include "config/ConfigHome.h"
#include "fakes/FaultyFiles.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;
using test::ConfigHome;
using test::exampleConfig;
using test::FaultyFiles;
using test::kolkata;
using test::readText;
using test::writeText;

/// A tidy configuration that shows from end to end which one of a series it is.
Config numbered(int number, std::size_t daysOff) {
    Config config = exampleConfig();
    config.meetingMinutes = number;
    config.appearance = std::to_string(number);
    for (Place& place : config.places)
        place.shortName = std::to_string(number);
    auto& days = config.places.back().daysOff.emplace(daysOff);
    for (std::string& day : days)
        day = std::to_string(1'000'000'000 + number);
    return config;
}

/// One of 1 to 20 KB.
Config ofAnySize(int number) {
    std::minstd_rand random(static_cast<unsigned>(number) * 7919U + 1);
    return numbered(number, random() % 900);
}

/// How things stand before a save.
struct Before {
    const char* name;
    std::function<void(const ConfigHome&)> prepare;
    Config loaded;     // before the save
    std::string kept;  // bytes that must be somewhere afterwards
};

std::vector<Before> situations() {
    const auto file = [](const std::string& text) {
        return [text](const ConfigHome& home) { writeText(home.paths.file, text); };
    };
    const Config longer = numbered(7, 120);
    Config shorter = exampleConfig();
    shorter.places.resize(1);
    const std::string useless = "hello" + std::string(3000, '!');
    return {
        {"a longer file", file(encodeConfig(longer)), longer, ""},
        {"a shorter file", file(encodeConfig(shorter)), shorter.tidied(kolkata()), ""},
        {"no file", [](const ConfigHome&) {}, Config::defaults(kolkata()), ""},
        {"a useless file", file(useless), Config::defaults(kolkata()), useless},
        {"a pipe",
         [](const ConfigHome& home) {
             fs::create_directories(home.paths.file.parent_path());
             EXPECT_EQ(::mkfifo(home.paths.file.c_str(), 0600), 0);
         },
         Config::defaults(kolkata()), ""},
    };
}

bool holdsSomewhere(const ConfigHome& home, const std::string& bytes) {
    const auto names = home.names();
    return bytes.empty() || std::any_of(names.begin(), names.end(), [&](const auto& name) {
               const auto path = home.paths.file.parent_path() / name;
               return fs::is_regular_file(path) && readText(path) == bytes;
           });
}

void expectOldOrNew(ConfigHome& home, const Before& before, const Config& saved) {
    const bool saving = fs::exists(home.beside(".saving"));
    ConfigFile readOnly(home.paths, ConfigFile::Access::readOnly);
    const Config seen = readOnly.load(kolkata());
    const Config loaded = home.load();
    EXPECT_TRUE(loaded == saved || loaded == before.loaded) << "loaded: " << encodeConfig(loaded);
    EXPECT_EQ(loaded, seen);
    EXPECT_EQ(home.load(), loaded);
    EXPECT_FALSE(fs::exists(home.beside(".saving"))) << "was there before: " << saving;
    EXPECT_TRUE(holdsSomewhere(home, before.kept));
}

constexpr std::size_t parts[] = {0, 1, 700, 100'000};  // bytes of a write that still get done

/// Saves, stopped at one operation, and after that perhaps loads, stopped at another. Whether
/// the last stop came at all.
bool stopTwice(const Before& before, int atSave, std::optional<int> atLoad, std::size_t part) {
    const Config saved = numbered(3, 60);
    ConfigHome home;
    before.prepare(home);
    FaultyFiles first(FaultyFiles::Fault::stop, atSave, part);
    ConfigFile(home.paths, ConfigFile::Access::readWrite, first).save(saved);
    FaultyFiles second(FaultyFiles::Fault::stop, atLoad.value_or(0), part);
    if (atLoad) ConfigFile(home.paths, ConfigFile::Access::readWrite, second).load(kolkata());
    expectOldOrNew(home, before, saved);
    if (!first.happened()) {
        EXPECT_EQ(home.load(), saved);
    }
    return atLoad ? second.happened() : first.happened();
}

// The process is killed at each of the operations that a save consists of, and then once more at
// each of those with which the next start finishes it.
TEST(InterruptedSaveTest, StoppedAnywhereLeavesTheOldOrTheNewConfiguration) {
    for (const Before& before : situations()) {
        for (const std::size_t part : parts) {
            int atSave = 0;
            while (stopTwice(before, atSave, std::nullopt, part)) {
                SCOPED_TRACE(std::string(before.name) + ", operation " + std::to_string(atSave) +
                             ", part " + std::to_string(part));
                int atLoad = 0;
                while (part == 700 && stopTwice(before, atSave, atLoad, part))
                    ++atLoad;
                ++atSave;
                if (HasFailure()) return;
            }
            EXPECT_GT(atSave, 6);
        }
    }
}

// The disk is full, or an operation fails otherwise, and later works again.
TEST(InterruptedSaveTest, AFailureLeavesTheOldOrTheNewConfiguration) {
    const Config saved = numbered(3, 60);
    for (const Before& before : situations()) {
        for (const std::size_t part : parts) {
            int failures = 0;
            for (bool failed = true; failed; ++failures) {
                SCOPED_TRACE(std::string(before.name) + ", operation " + std::to_string(failures) +
                             ", part " + std::to_string(part));
                ConfigHome home;
                before.prepare(home);
                FaultyFiles faulty(FaultyFiles::Fault::fail, failures, part);
                ConfigFile(home.paths, ConfigFile::Access::readWrite, faulty).save(saved);
                failed = faulty.happened();
                expectOldOrNew(home, before, saved);
                home.file.save(numbered(4, 80));
                EXPECT_EQ(home.load(), numbered(4, 80));
            }
        }
    }
}

/// A number that parent and child share.
class SharedCounter {
 public:
    SharedCounter()
        : memory_(::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                         MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
          value_(new (memory_) std::atomic<int>(0)) {}
    SharedCounter(const SharedCounter&) = delete;
    SharedCounter& operator=(const SharedCounter&) = delete;
    ~SharedCounter() { ::munmap(memory_, sizeof(std::atomic<int>)); }

    std::atomic<int>& operator*() { return *value_; }

 private:
    void* memory_;
    std::atomic<int>* value_;
};

// To start a process under the address sanitizer takes fifty times as long.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kills = 50;
#else
constexpr int kills = 1000;
#endif

// Nothing waits for the disk here, or that is where nearly all kills would fall.
TEST(InterruptedSaveTest, KillsAtRandomMomentsLoseNothing) {
    using namespace std::chrono;
    ConfigHome home;
    SharedCounter done;  // the last number whose save has returned
    const auto started = steady_clock::now();
    for (*done = 0; *done < 20; ++*done)
        home.file.save(ofAnySize(*done + 1));
    const auto perSave = duration_cast<nanoseconds>(steady_clock::now() - started) / 20;

    std::minstd_rand random(20260801);
    for (int kill = 0; kill < kills; ++kill) {
        const int start = *done;
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (int number = start + 1;; ++number) {
                home.file.save(ofAnySize(number));
                *done = number;
            }
        }
        // Every other one is let finish a save first: else a busy machine, where children start
        // late, would kill them all before they have done anything.
        while (*done < start + kill % 2)
            std::this_thread::yield();
        std::this_thread::sleep_for(perSave * (random() % 1000) / 800);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);

        const Config loaded = home.load();
        const int number = loaded.meetingMinutes;
        ASSERT_EQ(loaded, ofAnySize(number)) << "after kill " << kill;
        ASSERT_GE(number, *done);
        ASSERT_LE(number, *done + 1);
        *done = number;
    }
    EXPECT_EQ(home.names(), std::vector<std::string>{"places.json"});
}

}  // namespace
}  // namespace noonward
