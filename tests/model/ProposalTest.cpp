#include "model/Proposal.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"

namespace noonward {
namespace {

using test::utc;

TEST(Proposal, FitsAMeetingIntoTheStrip) {
    const Instant start = utc("2026-01-15 00:00");
    const Strip still{.dayStart = start};
    const auto scrolled = [&](microseconds elapsed) {
        return Strip{.dayStart = start, .rolling = true, .elapsed = elapsed};
    };
    const struct {
        const char* what;
        Strip strip;
        microseconds at;  // from the strip's start
        int length;
        microseconds fitted;
    } cases[] = {
        {"on a mark", still, minutes(605), 60, minutes(605)},
        {"just below the middle", still, minutes(607) + seconds(29), 60, minutes(605)},
        {"the middle goes up", still, minutes(607) + seconds(30), 60, minutes(610)},
        {"before the strip", still, minutes(-8), 60, minutes(0)},
        {"the end of the strip", still, minutes(1420), 60, minutes(1380)},
        {"a short meeting may start later", still, minutes(1424), 15, minutes(1425)},
        {"after the strip", still, hours(100), 30, minutes(1410)},
        {"the left half of the first hour has gone", scrolled(minutes(30)), minutes(0), 60,
         minutes(30)},
        {"exactly on a mark", scrolled(minutes(35)), minutes(0), 60, minutes(35)},
        {"a moment later the mark has gone", scrolled(minutes(35) + microseconds(1)), minutes(0),
         60, minutes(40)},
        {"rounding may not go below the edge", scrolled(minutes(34)), minutes(31), 60, minutes(35)},
    };
    for (const auto& c : cases)
        EXPECT_EQ(fitted(start + c.at, c.strip, c.length) - start, c.fitted) << c.what;
    EXPECT_EQ(fitted(Instant::min(), still, 60), start);
    EXPECT_EQ(fitted(Instant::max(), still, 60), start + hours(23));
}

TEST(Proposal, OffersFourLengths) {
    const struct {
        int stored;
        int effective;
        int next;
    } cases[] = {
        {15, 15, 30},
        {30, 30, 45},
        {45, 45, 60},
        {60, 60, 15},
        {20, 60, 15},
        {0, 60, 15},
        {std::numeric_limits<int>::min(), 60, 15},
        {std::numeric_limits<int>::max(), 60, 15},
    };
    for (const auto& [stored, effective, next] : cases) {
        EXPECT_EQ(effectiveLength(stored), effective);
        EXPECT_EQ(nextLength(effective), next);
        EXPECT_EQ(nextLength(stored), next);
    }
}

}  // namespace
}  // namespace noonward
