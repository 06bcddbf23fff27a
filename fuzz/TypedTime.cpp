// A time as it is typed. The first byte chooses the situation.

#include "Require.h"
#include "reference/TimeParser.h"

namespace noonward::fuzz {
namespace {

TimeZone zone(const char* name) {
    return TimeZone::find(name).value();
}

// The days of the year are shifted, so that clock changes come near.
TimeContext situation(std::uint8_t which) {
    const Instant now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) +
                        hours(24 * (which % 40)) + minutes(580);
    return {.now = now,
            .dayStart = std::chrono::floor<std::chrono::days>(now),
            .dayOffset = which % 5 - 2,
            .rolling = which % 2 == 1,
            .homeZone = zone("Europe/London"),
            .rows = {{"London", "LON", zone("Europe/London")},
                     {"New York", "NYC", zone("America/New_York")},
                     {"São Paulo", "SAO", zone("America/Sao_Paulo")},
                     {"Lord Howe", "LDH", zone("Australia/Lord_Howe")}}};
}

void parse(std::uint8_t which, std::string_view typed) {
    const TimeContext context = situation(which);
    const auto meant = TimeParser::parse(typed, context);
    if (!meant) return;
    require(*meant - context.now < hours(24 * 40) && context.now - *meant < hours(24 * 40),
            "a typed time is near");
    require((*meant - std::chrono::floor<minutes>(*meant)).count() == 0, "and a whole minute");
    require(TimeParser::parse(typed, context) == meant, "and always the same");
}

}  // namespace
}  // namespace noonward::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 0) noonward::fuzz::parse(data[0], noonward::fuzz::text(data + 1, size - 1));
    return 0;
}
