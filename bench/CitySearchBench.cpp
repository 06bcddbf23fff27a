// Searching both lists of cities at each keystroke, against folding every text anew to do so.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "Ratios.h"
#include "base/Unicode.h"
#include "reference/Cities.h"

namespace {

long allocations = 0;

}  // namespace

// Not inlined: g++ would see memory of the one freed by what the other calls, and warn.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace noonward::bench {
namespace {

/// What stands in the field after each key of some searches.
std::vector<std::string> keystrokes() {
    std::vector<std::string> texts;
    for (const std::string word :
         {"london", "new york", "São Paulo", "united states", "kuala", "zzz"}) {
        for (std::size_t size = 1; size <= word.size(); ++size) {
            const std::string typed = word.substr(0, size);
            if (unicode::isValidUtf8(typed)) texts.push_back(typed);
        }
    }
    return texts;
}

bool matches(const std::string& whole, const std::string& query) {
    const std::string text = unicode::folded(whole);
    if (text.rfind(query, 0) == 0) return true;
    for (std::size_t space = text.find(' '); space != std::string::npos;
         space = text.find(' ', space + 1)) {
        if (text.compare(space + 1, query.size(), query) == 0) return true;
    }
    return false;
}

std::vector<const City*> searchFoldingAnew(const std::string& typed) {
    const std::string query = unicode::folded(unicode::trimmed(typed));
    std::array<std::vector<const City*>, 3> groups;
    for (const City& city : Cities::curated()) {
        const auto& aliases = city.aliases;
        if (matches(city.name, query)) {
            groups[0].push_back(&city);
        } else if (std::any_of(aliases.begin(), aliases.end(),
                               [&](const auto& alias) { return matches(alias, query); })) {
            groups[1].push_back(&city);
        } else if (unicode::folded(city.country).rfind(query, 0) == 0) {
            groups[2].push_back(&city);
        }
    }
    std::vector<const City*> cities;
    for (const auto& group : groups)
        cities.insert(cities.end(), group.begin(), group.end());
    std::set<std::string> names;
    for (const City* city : cities)
        names.insert(unicode::folded(city->name));
    for (const City& city : Cities::zones()) {
        if (!matches(city.name, query)) continue;
        if (!names.contains(unicode::folded(city.name))) cities.push_back(&city);
    }
    return cities;
}

template <typename Search>
void typeAll(benchmark::State& state, Search search) {
    const auto texts = keystrokes();
    search(texts.front());  // makes the lists
    const long before = allocations;
    for (auto _ : state) {
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(search(text));
    }
    const auto searches =
        static_cast<double>(state.iterations()) * static_cast<double>(texts.size());
    state.counters["allocations"] = static_cast<double>(allocations - before) / searches;
    state.counters["time"] =
        benchmark::Counter(searches, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void ours(benchmark::State& state) {
    typeAll(state, [](const std::string& text) { return Cities::search(text); });
}
BENCHMARK(ours);

void foldingAnew(benchmark::State& state) {
    typeAll(state, searchFoldingAnew);
}
BENCHMARK(foldingAnew);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    return noonward::bench::run(argc, argv,
                                {{"city search", "ours", "foldingAnew", "folding anew", 1.0 / 40}});
}
