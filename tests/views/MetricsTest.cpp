#include "views/theme/Metrics.h"

#include <gtest/gtest.h>

namespace noonward {
namespace {

TEST(Metrics, PlaceHoursOnTheGrid) {
    const std::pair<double, double> cases[] = {
        {-1e300, 342}, {-1, 342},  {0, 342},     {0.5, 357}, {0.999, 371.97}, {1, 374},
        {7.25, 573.5}, {23, 1078}, {23.5, 1093}, {24, 1110}, {24.01, 1110},   {1e300, 1110},
    };
    for (const auto& [position, x] : cases)
        EXPECT_DOUBLE_EQ(Metrics::x(position), x) << position;
}

TEST(Metrics, StackRows) {
    EXPECT_EQ(Metrics::rowsHeight({}), 0);
    EXPECT_EQ(Metrics::rowsHeight({false}), 56);
    EXPECT_EQ(Metrics::rowsHeight({true}), 26);
    EXPECT_EQ(Metrics::rowsHeight(std::vector<bool>(6, false)), 376);
    EXPECT_EQ(Metrics::rowsHeight({false, true, false}), 154);
}

}  // namespace
}  // namespace noonward
