// A calendar from the network, against a reader that goes over it by hand.

#include "Require.h"
#include "holidays/CalendarReader.h"
#include "holidays/NaiveCalendar.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace noonward;
    const std::string_view text = fuzz::text(data, size);
    const HolidayDays days = readCalendar(text);
    fuzz::require(days == test::NaiveCalendar::read(std::string(text)), "both readers agree");
    return 0;
}
