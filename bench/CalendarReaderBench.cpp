// Reading a country's holiday calendar, against libical's parser doing the same.

#include <libical/ical.h>

#include <cstdio>
#include <map>
#include <string>
#include <string_view>

#include "Ratios.h"
#include "holidays/CalendarReader.h"

namespace noonward::bench {
namespace {

constexpr const char* descriptions[] = {
    "Public holiday\r\n",
    "Public holiday in Karnataka\\, Maharashtra\\, Goa\\, Telangana\\, An\r\n dhra Pradesh\r\n",
    "Observance\\nTo hide observances\\, go to Google Calendar Setting\r\n s > Holidays in "
    "India\r\n",
};

/// 600 events in 215 KB, shaped like the public calendar service's own.
std::string calendarText() {
    std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nX-WR-CALNAME:Holidays\r\n";
    for (int i = 0; i < 600; ++i) {
        const int date = (2021 + i / 240) * 10000 + (1 + i / 20 % 12) * 100 + 1 + i % 20;
        text += "BEGIN:VEVENT\r\nDTSTART;VALUE=DATE:" + std::to_string(date) + "\r\n";
        text += "DTEND;VALUE=DATE:" + std::to_string(date + 1) + "\r\n";
        text += "DTSTAMP:20260118T073139Z\r\nUID:" + std::to_string(date) +
                "_09lrg7ebq0id94snlvledsknmc@google.com\r\nCLASS:PUBLIC\r\n";
        text += std::string("DESCRIPTION:") + descriptions[i % 3];
        text += "LAST-MODIFIED:20240603T101345Z\r\nSTATUS:CONFIRMED\r\n";
        text += "SUMMARY:Holiday number " + std::to_string(i) + " (regional holiday)\r\n";
        text += "TRANSP:TRANSPARENT\r\nEND:VEVENT\r\n";
    }
    return text + "END:VCALENDAR\r\n";
}

const std::string text = calendarText();

void ours(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(readCalendar(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ours)->Unit(benchmark::kMicrosecond);

/// The day and the name of each public holiday.
std::map<int, std::string> readByLibical() {
    std::map<int, std::string> days;
    icalcomponent* calendar = icalparser_parse_string(text.c_str());
    for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
         event; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
        const char* description = icalcomponent_get_description(event);
        const char* summary = icalcomponent_get_summary(event);
        if (!description || !summary || std::string_view(description).rfind("Public", 0) != 0)
            continue;
        const icaltimetype start = icalcomponent_get_dtstart(event);
        days.emplace(start.year * 10000 + start.month * 100 + start.day, summary);
    }
    icalcomponent_free(calendar);
    return days;
}

void libical(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(readByLibical());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(libical)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace noonward::bench

int main(int argc, char** argv) {
    using namespace noonward::bench;
    if (readByLibical().size() != noonward::readCalendar(text).size()) return 2;
    std::printf("%zu bytes\n", text.size());
    return run(argc, argv, {{"calendar of 600 events", "ours", "libical", "libical", 0.1}});
}
