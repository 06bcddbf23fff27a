#include "model/DayOffNotes.h"

#include <gtest/gtest.h>

#include "fakes/FakeHolidays.h"
#include "support/Instants.h"

namespace noonward {
namespace {

using test::FakeHolidays;
using test::utc;
using test::zoneNamed;

Row row(const char* label, const char* zone, const Place& place = {}) {
    Row made(0, place, zoneNamed(zone), false);
    made.label = label;
    return made;
}

TEST(DayOffNotes, NameEachReasonOnce) {
    const FakeHolidays holidays({
        {{"GB", {2026, 4, 3}}, {.name = "Good Friday"}},
        {{"AU", {2026, 4, 3}}, {.name = "Good Friday"}},
        {{"DE", {2026, 4, 3}}, {.name = "Karfreitag"}},
        {{"DE", {2026, 5, 25}}, {.name = "Whit Monday", .regional = "Bavaria"}},
        {{"DE", {2026, 5, 23}}, {.name = "A Saturday", .regional = "Bavaria"}},
        {{"IN", {2026, 5, 23}}, {.name = "saturday"}},
    });
    const Row london = row("London", "Europe/London");
    const Row york = row("New York", "America/New_York");
    const Row sydney = row("Sydney", "Australia/Sydney");
    const Row berlin = row("Berlin", "Europe/Berlin");
    const Row pune = row("Pune", "Asia/Kolkata");
    const Row mine = row("Mine", "Europe/London", {.daysOff = {{"2026-04-03"}}});
    using Notes = std::vector<std::string>;
    const struct {
        const char* what;
        std::vector<Row> rows;
        const char* at;
        Notes notes;
    } cases[] = {
        {"a common day", {london, york}, "2026-01-14 12:00", {}},
        {"nobody", {}, "2026-01-17 12:00", {}},
        {"all of them", {london, york, berlin}, "2026-01-17 12:00", {"Saturday everywhere"}},
        {"one alone is not everywhere", {london}, "2026-01-17 12:00", {"Saturday in London"}},
        {"some", {london, york, sydney}, "2026-04-03 05:00", {"Good Friday in London, Sydney"}},
        {"different names, in order of the rows",
         {berlin, london, sydney},
         "2026-04-03 05:00",
         {"Karfreitag in Berlin", "Good Friday in London, Sydney"}},
        {"one's own day off wins",
         {mine, london},
         "2026-04-03 12:00",
         {"Day off in Mine", "Good Friday in London"}},
        {"in part of the country",
         {berlin, york},
         "2026-05-25 12:00",
         {"maybe Whit Monday in Berlin"}},
        {"but not on a weekend; names are told apart exactly",
         {berlin, pune, york},
         "2026-05-23 12:00",
         {"Saturday in Berlin, New York", "saturday in Pune"}},
        {"each on its own day", {sydney, york}, "2026-01-17 03:00", {"Saturday in Sydney"}},
    };
    for (const auto& [what, rows, at, notes] : cases)
        EXPECT_EQ(dayOffNotes(rows, utc(at), holidays), notes) << what;
}

}  // namespace
}  // namespace noonward
