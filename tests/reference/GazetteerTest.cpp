#include "reference/Gazetteer.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "reference/Country.h"
#include "reference/GazetteerGeocoder.h"
#include "reference/GazetteerLine.h"
#include "reference/PlaceKey.h"
#include "time/TimeZone.h"

namespace noonward {
namespace {

using Names = std::vector<std::string>;

std::string described(const Placemark& place) {
    return place.locality.value_or("?") + "|" + place.region.value_or("") + "|" +
           place.country.value_or("?") + "|" + place.zone.value_or("?");
}

Names namesOf(const std::vector<Placemark>& places) {
    Names names;
    for (const Placemark& place : places)
        names.push_back(place.locality.value_or("?"));
    return names;
}

Names found(const std::string& text) {
    Names all;
    for (const Placemark& place : Gazetteer::builtIn().search(text))
        all.push_back(described(place));
    return all;
}

template <typename Use>
void forEachLine(std::string_view table, Use use) {
    for (std::size_t place = 0; place < table.size();) {
        const std::string_view line = lineAt(table, place);
        use(line);
        place += line.size() + 1;
    }
}

TEST(PlaceKey, IsWhatPeopleType) {
    const std::pair<std::string, std::string> rows[] = {
        {"Saint-Denis", "saint denis"},
        {"St. Louis", "st louis"},
        {"Xi’an", "xian"},
        {"Xi'an", "xian"},
        {"São Paulo", "sao paulo"},
        {"TROMSØ", "tromso"},
        {"Łódź", "lodz"},
        {"Weißenfels", "weissenfels"},
        {"İzmir", "izmir"},
        {"Diyarbakır", "diyarbakir"},
        {"  Washington,  D.C. ", "washington dc"},
        {"Biel/Bienne (BE)", "biel bienne be"},
        {"東京", "東京"},
        {"Αθήνα", "αθηνα"},
        {" ,.’- ", ""},
        {"", ""},
        {"a\xFFz", "a\xEF\xBF\xBDz"},
    };
    for (const auto& [name, key] : rows)
        EXPECT_EQ(placeKey(name), key) << name;
}

TEST(Gazetteer, FindsWhatAPersonMeans) {
    const std::pair<std::string, std::string> firsts[] = {
        {"Köln", "Köln|North Rhine-Westphalia|Germany|Europe/Berlin"},
        {"koeln", "Köln|North Rhine-Westphalia|Germany|Europe/Berlin"},
        {"Cologne", "Cologne|North Rhine-Westphalia|Germany|Europe/Berlin"},
        {"munchen", "München|Bavaria|Germany|Europe/Berlin"},
        {"Munich", "Munich|Bavaria|Germany|Europe/Berlin"},
        {"Duesseldorf", "Düsseldorf|North Rhine-Westphalia|Germany|Europe/Berlin"},
        {"Ko Samui", "Ko Samui|Surat Thani|Thailand|Asia/Bangkok"},
        {"samui", "Ko Samui|Surat Thani|Thailand|Asia/Bangkok"},
        {"NUUK", "Nuuk||Greenland|America/Nuuk"},
        {"timbuktu", "Timbuktu||Mali|Africa/Bamako"},
        {"Coyhaique", "Coyhaique|Aysén|Chile|America/Coyhaique"},
        {"st louis", "St. Louis|Missouri|United States|America/Chicago"},
        {"Saint Louis", "St. Louis|Missouri|United States|America/Chicago"},
        {"st petersburg", "Saint Petersburg||Russia|Europe/Moscow"},
        {"new york", "New York||United States|America/New_York"},
        {"nyc", "NYC|New York|United States|America/New_York"},
        {"são paulo", "São Paulo||Brazil|America/Sao_Paulo"},
        {"  sao   paulo ", "São Paulo||Brazil|America/Sao_Paulo"},
        {"milwaukee", "Milwaukee|Wisconsin|United States|America/Chicago"},
        {"nairobi", "Nairobi||Kenya|Africa/Nairobi"},
        {"москва", "Москва|Moscow|Russia|Europe/Moscow"},
        {"Wash", "Washington, D.C.|District of Columbia|United States|America/New_York"},
        {"Ely", "Ely|England|United Kingdom|Europe/London"},  // not the larger Elyria
        {"mexic", "Mexico City||Mexico|America/Mexico_City"},
        // Zones within their countries
        {"El Paso", "El Paso|Texas|United States|America/Denver"},
        {"Phoenix", "Phoenix|Arizona|United States|America/Phoenix"},
        {"Pensacola", "Pensacola|Florida|United States|America/Chicago"},
        {"Broken Hill", "Broken Hill|New South Wales|Australia|Australia/Broken_Hill"},
        {"Kaliningrad", "Kaliningrad||Russia|Europe/Kaliningrad"},
        {"Nicosia, Cyprus", "Nicosia||Cyprus|Asia/Nicosia"},
        {"Hanga Roa", "Hanga Roa|Valparaíso|Chile|Pacific/Easter"},  // small, but alone there
        {"Ponta Delgada", "Ponta Delgada||Portugal|Atlantic/Azores"},
        // With what tells them apart
        {"Springfield, MA", "Springfield|Massachusetts|United States|America/New_York"},
        {"springfield oregon", "Springfield|Oregon|United States|America/Los_Angeles"},
        {"Springfield, OR, USA", "Springfield|Oregon|United States|America/Los_Angeles"},
        {"paris texas", "Paris|Texas|United States|America/Chicago"},
        {"London, Ontario, Canada", "London|Ontario|Canada|America/Toronto"},
        {"perth uk", "Perth|Scotland|United Kingdom|Europe/London"},
        {"san jose costa rica", "San José||Costa Rica|America/Costa_Rica"},
        {"Washington, D.C.", "Washington|District of Columbia|United States|America/New_York"},
        {"Saint-Denis, Réunion", "Saint-Denis||Réunion|Indian/Reunion"},
    };
    for (const auto& [text, first] : firsts) {
        const Names all = found(text);
        EXPECT_EQ(all.empty() ? "nothing" : all.front(), first) << text;
    }
}

TEST(Gazetteer, GivesNamesakesByPopulation) {
    Names all = found("springfield");
    ASSERT_GE(all.size(), 5U);
    all.resize(5);
    const Names expected = {
        "Springfield|Missouri|United States|America/Chicago",
        "Springfield|Massachusetts|United States|America/New_York",
        "Springfield|Illinois|United States|America/Chicago",
        "Springfield|Oregon|United States|America/Los_Angeles",
        "Springfield|Ohio|United States|America/New_York",
    };
    EXPECT_EQ(all, expected);
    all = found("saint-denis");
    ASSERT_GE(all.size(), 2U);
    EXPECT_EQ(all[0], "Saint-Denis||Réunion|Indian/Reunion");
    EXPECT_EQ(all[1], "Saint-Denis|Île-de-France|France|Europe/Paris");
}

TEST(Gazetteer, FindsNothingInNonsense) {
    const std::string texts[] = {
        "",
        "   ",
        ",",
        ", Germany",
        "-.’",
        "qqxzy",
        "qqxzy, Germany",
        "berlin qqxzy",
        "\t",
        std::string("\0", 1),
        "\xC3\x28",
        "\xF0\x9F\x98\x80",
        "\u0301",
        std::string(Gazetteer::longestText + 1, 's'),
        std::string(Gazetteer::longestText, ','),
        std::string(1'000'000, 'a'),
    };
    for (const std::string& text : texts)
        EXPECT_EQ(found(text), Names()) << text.substr(0, 20);
}

TEST(Gazetteer, HasTablesThatASearchCanTrust) {
    std::string previous;
    std::set<std::string, std::less<>> areas;
    std::size_t lines = 0;
    forEachLine(Gazetteer::builtIn().places(), [&](std::string_view text) {
        const auto line = GazetteerLine::parse(text);
        ASSERT_TRUE(line) << text;
        ASSERT_LT(previous, text) << "sorted, each once";
        previous = text;
        ++lines;
        if (line->how == GazetteerLine::How::name) {
            ASSERT_EQ(placeKey(line->name), line->key);
        }
        ASSERT_EQ(placeKey(line->key), line->key) << "it could not be found";
        ASSERT_FALSE(line->key.empty() || line->name.empty() || line->number.empty()) << text;
        areas.emplace(line->area);
    });
    EXPECT_GT(lines, 60'000U);

    std::set<std::string, std::less<>> countries;
    previous.clear();
    forEachLine(Gazetteer::builtIn().areas(), [&](std::string_view text) {
        const auto area = GazetteerArea::parse(text);
        ASSERT_TRUE(area) << text;
        ASSERT_LT(previous, text);
        previous = text;
        EXPECT_EQ(areas.erase(std::string(area->number)), 1U) << text;
        EXPECT_TRUE(TimeZone::isKnown(area->zone)) << area->zone;
        countries.emplace(area->country);
    });
    EXPECT_TRUE(areas.empty()) << *areas.begin();
    EXPECT_GT(countries.size(), 240U);
    for (const std::string& country : countries)
        EXPECT_NE(Country::name(country), country);
}

// Each line is found by its key in the whole table, the first and the last as well.
TEST(Gazetteer, FindsTheFirstLineOfEveryKey) {
    const std::string_view table = Gazetteer::builtIn().places();
    std::map<std::string_view, std::size_t> firsts;
    forEachLine(table, [&](std::string_view line) {
        firsts.emplace(line.substr(0, line.find('\t')),
                       static_cast<std::size_t>(line.data() - table.data()));
    });
    for (const auto& [key, place] : firsts)
        ASSERT_EQ(firstLineNotBefore(table, key), place) << key;
    EXPECT_EQ(firstLineNotBefore(table, "\x7F\x7F"), firsts.upper_bound("\x7F\x7F")->second);
    EXPECT_EQ(firstLineNotBefore(table, "\xFF"), table.size());
    EXPECT_EQ(firstLineNotBefore("", "a"), 0U);
}

constexpr std::string_view twoAreas =
    "100\tDE\tBerlin\t\tEurope/Berlin\n"
    "101\tzz\t\t\tEurope/Paris";

TEST(Gazetteer, PassesOverLinesOfAnotherForm) {
    const std::string table =
        "ax\n"
        "axa\t0\t9\t1\tAxa\n"
        "axb\t3\t9\t1\tAxb\t100\n"
        "axc\t0\t-9\t1\tAxc\t100\n"
        "axd\t0\t99999999999999999999999\t1\tAxd\t100\n"
        "axe\t0\t5\t1\tAxe\t100\tmore\n"
        "axf\t\t5\t1\tAxf\t100\n"
        "axg\t0\t5\t1\tAxg\t100\n"
        "axh\t0\t7\t2\tAxh\t101\n"
        "axi\t0\t7\t3\tAxi\t\n"
        "axj\t0\t7\t3\tAxj\t10\n"
        "axk\t0\t7\t3\tAxk\t102";
    EXPECT_EQ(namesOf(Gazetteer(table, twoAreas).search("ax")), (Names{"Axh", "Axg"}));
    EXPECT_EQ(namesOf(Gazetteer(table, "").search("ax")), Names());
    EXPECT_EQ(namesOf(Gazetteer(table, "100\tDE\t\tEurope/Berlin").search("ax")), Names());
    EXPECT_EQ(namesOf(Gazetteer("", twoAreas).search("ax")), Names());
    EXPECT_EQ(namesOf(Gazetteer("\n\n\n", twoAreas).search("ax")), Names());
}

TEST(Gazetteer, GivesAPlaceOnceAndTheBestOnly) {
    std::string table;
    for (int i = 10; i < 50; ++i) {
        const std::string number = std::to_string(i);
        table += "b" + number + "\t0\t" + number + "\t" + number + "\tB" + number + "\t100\n";
    }
    table +=
        "b99\t1\t49\t49\tBee\t100\n"
        "bc\t2\t760\t80\tOld Bc\t100\n"
        "bd\t0\t47\t81\tB47\t100\n";
    const Gazetteer gazetteer(table, twoAreas);
    const Names names = namesOf(gazetteer.search("b"));
    const Names expected = {"B49", "B48", "B47", "Old Bc", "B46", "B45",
                            "B44", "B43", "B42", "B41",    "B40", "B39"};
    EXPECT_EQ(names, expected)
        << "a later word counts for a sixteenth, and nobody could tell the second B47";
    EXPECT_EQ(namesOf(gazetteer.search("b99")), (Names{"Bee"}));
}

TEST(GazetteerGeocoder, AnswersLaterAndOutlivesItself) {
    std::vector<std::function<void()>> posted;
    std::vector<Names> answers;
    {
        GazetteerGeocoder geocoder([&](auto work) { posted.push_back(std::move(work)); });
        for (const char* text : {"Coyhaique", "qqxzy"}) {
            geocoder.lookUp(text, [&](auto places) {
                ASSERT_TRUE(places);
                answers.push_back(namesOf(*places));
            });
        }
        EXPECT_TRUE(answers.empty()) << "not before the call has returned";
    }
    ASSERT_EQ(posted.size(), 2U);
    for (const auto& work : posted)
        work();
    EXPECT_EQ(answers, (std::vector<Names>{{"Coyhaique"}, {}}));
}

}  // namespace
}  // namespace noonward
