// The whole process that draws the user's ribbon to a file, from start to exit, against another
// that draws the ribbon of the same places and encodes it with QImage::save.

#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "Budget.h"
#include "Median.h"
#include "RibbonFixture.h"
#include "config/ConfigJson.h"
#include "support/TempFolder.h"

namespace {

constexpr int runs = 25;
constexpr double budgetMilliseconds = 60;
constexpr double budgetRatio = 0.5;

double millisecondsOf(const char* program, const char* argument) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, argument, nullptr);
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::abort();
    return took.count();
}

int saveWithQt(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    noonward::registerFonts();
    const noonward::bench::RibbonFixture fixture;
    return fixture.picture().save(qEnvironmentVariable("NOONWARD_SNAPSHOT"), "PNG") ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--with-qt") return saveWithQt(argc, argv);

    const noonward::test::TempFolder home;
    noonward::test::writeText(home / "Noonward/places.json",
                              noonward::encodeConfig(noonward::bench::RibbonFixture::config()));
    setenv("XDG_DATA_HOME", home.path().c_str(), 1);
    setenv("TZ", "Europe/London", 1);
    setenv("NOONWARD_SNAPSHOT", (home / "ribbon.png").c_str(), 1);
    std::vector<double> ours;
    std::vector<double> withQt;
    for (int i = 0; i < runs; ++i) {
        ours.push_back(millisecondsOf(NOONWARD_PROGRAM, nullptr));
        withQt.push_back(millisecondsOf(argv[0], "--with-qt"));
    }
    using noonward::bench::median;
    const double ratio = median(ours) / median(withQt);
    using noonward::bench::keepsBudget;
    bool kept = keepsBudget("snapshot process", median(ours), "ms", budgetMilliseconds);
    kept &= keepsBudget("snapshot process", ratio, "x the same with QImage::save", budgetRatio);
    return kept ? 0 : 1;
}
