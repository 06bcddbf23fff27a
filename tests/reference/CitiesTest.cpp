#include "reference/Cities.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Unicode.h"
#include "fakes/FakeGeocoder.h"
#include "reference/CityIndex.h"

namespace noonward {
namespace {

using Names = std::vector<std::string>;

Names names(const std::vector<const City*>& cities) {
    Names result;
    for (const City* city : cities)
        result.push_back(city->name);
    return result;
}

/// A text of the lists, which stay where they are, folded once.
const std::string& folded(const std::string& text) {
    static std::unordered_map<const std::string*, std::string> known;
    const auto [found, added] = known.try_emplace(&text);
    if (added) found->second = unicode::folded(text);
    return found->second;
}

/// The matching rule, word for word.
bool matches(const std::string& whole, const std::string& query) {
    const std::string_view text = folded(whole);
    if (text.rfind(query, 0) == 0) return true;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        if (end > begin && text.substr(begin, end - begin).rfind(query, 0) == 0) return true;
        begin = end + 1;
    }
    return false;
}

/// The search, group after group, as slow as it comes.
std::vector<const City*> slowSearch(const std::vector<City>& curated,
                                    const std::vector<City>& zones, const std::string& typed) {
    const std::string query = unicode::folded(unicode::trimmed(typed));
    std::vector<const City*> found;
    if (query.empty()) return found;
    const auto add = [&](auto matchesQuery) {
        for (const City& city : curated) {
            const bool known = std::find(found.begin(), found.end(), &city) != found.end();
            if (!known && matchesQuery(city)) found.push_back(&city);
        }
    };
    add([&](const City& city) { return matches(city.name, query); });
    add([&](const City& city) {
        return std::any_of(city.aliases.begin(), city.aliases.end(),
                           [&](const std::string& alias) { return matches(alias, query); });
    });
    add([&](const City& city) { return folded(city.country).rfind(query, 0) == 0; });
    std::set<std::string> known;
    for (const City* city : found)
        known.insert(folded(city->name));
    for (const City& city : zones) {
        if (!known.contains(folded(city.name)) && matches(city.name, query)) {
            found.push_back(&city);
        }
    }
    return found;
}

/// The beginnings of every text in the lists and of every word of it: the first letters, and all.
std::set<std::string> manyQueries(const std::vector<City>& cities) {
    std::set<std::string> queries;
    const auto addBeginnings = [&](const std::string& text) {
        for (std::size_t begin = 0; begin < text.size(); ++begin) {
            if (begin > 0 && text[begin - 1] != ' ') continue;
            for (const std::size_t size : {1U, 2U, 4U, 100U}) {
                queries.insert(text.substr(begin, size));
            }
        }
    };
    for (const City& city : cities) {
        addBeginnings(city.name);
        addBeginnings(city.country);
        for (const std::string& alias : city.aliases)
            addBeginnings(" " + alias + "  x");
    }
    return queries;
}

TEST(CitySearch, FindsWhatTheRuleFinds) {
    // Names that meet in other ways than those of the catalogue do.
    const std::vector<City> odd = {
        {"New Delhi", "India", "Asia/Kolkata", "DEL", {"Delhi", "New Town"}},
        {"Delhi New", "Newland", "Asia/Kolkata", "DN", {"New Delhi"}},
        {"  Far  Away ", "New  Far", "Asia/Kolkata", "FA", {"", " ", "Far"}},
        {"Éa", "Éa", "Asia/Kolkata", "E", {"Éa", "EA"}},
        {"", "", "Asia/Kolkata", "", {}},
        {"New Delhi", "Other", "Asia/Tokyo", "ND", {}},
    };
    const std::vector<City> oddZones = {
        {"New Delhi", "Asia", "Asia/Kolkata", "ND", {}},
        {"Delhi New", "Asia", "Asia/Kolkata", "DN", {}},
        {"ea", "Asia", "Asia/Kolkata", "EA", {}},
        {"Newer", "Asia", "Asia/Kolkata", "NEW", {}},
        {"Newer", "Asia", "Asia/Tokyo", "NEW", {}},
    };
    const std::vector<City> none;
    const std::pair<const std::vector<City>&, const std::vector<City>&> lists[] = {
        {odd, oddZones}, {Cities::curated(), Cities::zones()}, {oddZones, odd}, {odd, none}};
    for (const auto& [curated, zones] : lists) {
        const CityIndex index(curated, zones);
        std::set<std::string> queries = manyQueries(curated);
        queries.merge(manyQueries(zones));
        ASSERT_FALSE(queries.empty());
        for (const std::string& query : queries) {
            ASSERT_EQ(index.search(query), slowSearch(curated, zones, query)) << query;
        }
    }
}

TEST(CitySearch, RanksNamesAliasesCountriesZones) {
    const std::pair<const char*, Names> rows[] = {
        {"", {}},
        {"  ", {}},
        {"ny", {"New York"}},
        {"sao", {"São Paulo", "Sao Tome"}},
        {"SÃO P", {"São Paulo"}},
        {"kolkata", {"Kolkata"}},
        {"calcutta", {"Kolkata"}},
        {"america", {}},
        {"york", {"New York"}},
        {"new y", {"New York"}},
        {"  new y  ", {"New York"}},
        {"york new", {}},
        {"ork", {}},
        {"peking", {"Beijing"}},
        {"turkiye", {"Istanbul"}},
        {"arab emirates", {}},  // a country counts from its beginning only
        {"united arab", {"Dubai", "Abu Dhabi"}},
    };
    for (const auto& [query, expected] : rows) {
        EXPECT_EQ(names(Cities::search(query)), expected) << query;
    }

    const Names found = names(Cities::search("new"));
    ASSERT_GT(found.size(), 4U);
    EXPECT_EQ(Names(found.begin(), found.begin() + 4),
              (Names{"New York", "Delhi", "Auckland", "Wellington"}));
    EXPECT_NE(std::find(found.begin(), found.end(), "New Salem"), found.end());
    EXPECT_EQ(std::count(found.begin(), found.end(), "New York"), 1);

    const Names united = names(Cities::search("united"));
    EXPECT_EQ(Names(united.begin(), united.begin() + 6),
              (Names{"Dubai", "Abu Dhabi", "London", "Edinburgh", "Manchester", "New York"}));
}

TEST(CitySearch, BearsAnyText) {
    for (const std::string& text :
         {std::string(100'000, 'a'), std::string("\0", 1), std::string("\xC3"),
          std::string("\u202Enew"), std::string("new\0york", 8)}) {
        EXPECT_TRUE(Cities::search(text).empty());
    }
    EXPECT_TRUE(Cities::search("\u0301").empty()) << "nothing is left of a mark alone";
}

TEST(CityLookUp, MakesCitiesOfPlacemarks) {
    const std::vector<Placemark> placemarks = {
        {.locality = "Bath",
         .name = "Roman Baths",
         .country = "United Kingdom",
         .zone = "Europe/London"},
        {.locality = "Nowhere", .name = {}, .country = {}, .zone = {}},
        {.locality = {}, .name = "Bath Spa", .country = {}, .zone = "Europe/London"},
        {.locality = {}, .name = {}, .country = "Jamaica", .zone = "America/Jamaica"},
        {.locality = "Bath", .name = {}, .country = "United Kingdom", .zone = "Europe/London"},
        {.locality = "Atlantis", .name = {}, .country = {}, .zone = "Sea/Atlantis"},
    };
    const std::vector<City> expected = {
        {"Bath", "United Kingdom", "Europe/London", "BAT", {}},
        {"Bath Spa", "", "Europe/London", "BS", {}},
        {" bath", "Jamaica", "America/Jamaica", " BA", {}},
        {"Bath", "United Kingdom", "Europe/London", "BAT", {}},
    };
    EXPECT_EQ(Cities::citiesOfPlacemarks(placemarks, " bath"), expected);
}

TEST(CityNames, TellNamesakesApart) {
    const City missouri{"Springfield", "United States", "America/Chicago", "SPR", {}, "Missouri"};
    const City ohio{"Springfield", "United States", "America/New_York", "SPR", {}, "Ohio"};
    const City australian{"springfield", "Australia", "Australia/Brisbane", "SPR", {}, ""};
    const City paris{"Paris", "France", "Europe/Paris", "PAR", {}};
    const City singapore{"Singapore", "Singapore", "Asia/Singapore", "SIN", {}};
    using Shown = std::vector<const City*>;
    const std::pair<Shown, Names> rows[] = {
        {{}, {}},
        {{&missouri, &paris}, {"Springfield", "Paris"}},
        {{&missouri, &ohio, &australian, &paris},
         {"Springfield, Missouri", "Springfield, Ohio", "springfield, Australia", "Paris"}},
        {{&ohio, &australian}, {"Springfield, United States", "springfield, Australia"}},
    };
    for (const auto& [shown, expected] : rows)
        EXPECT_EQ(Cities::rowNames(shown), expected);

    EXPECT_EQ(Cities::fullName(missouri), "Springfield, Missouri, United States");
    EXPECT_EQ(Cities::fullName(paris), "Paris, France");
    EXPECT_EQ(Cities::fullName(singapore), "Singapore");
}

TEST(CityLookUp, AsksForWhatWasTypedAndNeverFails) {
    test::FakeGeocoder geocoder;
    std::vector<std::vector<City>> answers;
    const auto keep = [&](std::vector<City> cities) { answers.push_back(std::move(cities)); };
    Cities::lookUp(geocoder, " Bath ", keep);
    Cities::lookUp(geocoder, "Ely", keep);
    EXPECT_EQ(geocoder.asked(), (Names{" Bath ", "Ely"}));
    EXPECT_TRUE(answers.empty()) << "not before the geocoder answers";

    geocoder.fail(1);
    geocoder.answer(0, {{.zone = "Europe/London"}});
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_TRUE(answers[0].empty());
    ASSERT_EQ(answers[1].size(), 1U);
    EXPECT_EQ(answers[1][0].name, " Bath ");
}

}  // namespace
}  // namespace noonward
