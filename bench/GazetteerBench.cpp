// Looking places up in the gazetteer at each keystroke, against going through all of its lines; and
// what a first look-up leaves in memory.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "Ratios.h"
#include "reference/Gazetteer.h"
#include "reference/GazetteerLine.h"
#include "reference/PlaceKey.h"

namespace noonward::bench {
namespace {

constexpr double longestMilliseconds = 1;
constexpr double mostMegabytes = 5;

std::vector<std::string> keystrokes() {
    std::vector<std::string> texts;
    for (const std::string word :
         {"springfield", "coyhaique", "st louis", "sao paulo", "paris tx"}) {
        for (std::size_t size = 1; size <= word.size(); ++size)
            texts.push_back(word.substr(0, size));
    }
    return texts;
}

void ours(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::string& text : keystrokes())
            benchmark::DoNotOptimize(Gazetteer::builtIn().search(text));
    }
}
BENCHMARK(ours)->Unit(benchmark::kMillisecond);

void allLines(benchmark::State& state) {
    const std::string_view table = Gazetteer::builtIn().places();
    for (auto _ : state) {
        for (const std::string& text : keystrokes()) {
            const std::string key = placeKey(text);
            std::uint64_t people = 0;
            for (std::size_t place = 0; place < table.size();) {
                const std::string_view line = lineAt(table, place);
                place += line.size() + 1;
                if (line.substr(0, key.size()) != key) continue;
                if (const auto found = GazetteerLine::parse(line)) people += found->population;
            }
            benchmark::DoNotOptimize(people);
        }
    }
}
BENCHMARK(allLines)->Unit(benchmark::kMillisecond);

double residentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

double millisecondsOf(const std::string& text) {
    const auto begin = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(Gazetteer::builtIn().search(text));
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
    return time.count();
}

/// Of a few times the best: what it costs when nothing else runs.
double leastMillisecondsOf(const std::string& text) {
    double least = millisecondsOf(text);
    for (int i = 0; i < 5; ++i)
        least = std::min(least, millisecondsOf(text));
    return least;
}

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    using namespace noonward::bench;
    // What is in the program is read from the disk once in a while, and not each time.
    std::ostringstream() << std::ifstream("/proc/self/exe", std::ios::binary).rdbuf();
    // The first one of the process, before anything has warmed it up.
    const double before = residentMegabytes();
    const double first = millisecondsOf("springfield");
    double longest = 0;
    for (const std::string& text : keystrokes())
        longest = std::max(longest, leastMillisecondsOf(text));
    for (const char* nowhere : {"s--, zz", "san, zz", "sant zz"})
        longest = std::max(longest, leastMillisecondsOf(nowhere));
    for (char letter = 'a'; letter <= 'z'; ++letter)
        longest = std::max(longest, leastMillisecondsOf({letter}));
    const double resident = residentMegabytes() - before;

    bool kept = keepsBudget("first place look-up", first, "ms", longestMilliseconds);
    kept = keepsBudget("longest place look-up", longest, "ms", longestMilliseconds) && kept;
    kept =
        keepsBudget("memory after looking up every letter", resident, "MB", mostMegabytes) && kept;
    const int ratios =
        run(argc, argv, {{"place look-up", "ours", "allLines", "all lines", 1.0 / 5}});
    return kept ? ratios : 1;
}
