// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/statistics.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

Statistics of(std::initializer_list<double> numbers) {
    Statistics all;
    for (const double number : numbers) {
        all.add(number);
    }
    return all;
}

TEST(StatisticsTest, TheDeviationIsThatOfASample) {
    const Statistics all = of({2, 4, 4, gap, 4, 5, 5, 7, 9});
    EXPECT_EQ(all.count(), 8) << "a gap is no number";
    EXPECT_DOUBLE_EQ(all.mean(), 5.0);
    EXPECT_DOUBLE_EQ(all.deviation(), std::sqrt(32.0 / 7.0));
    EXPECT_EQ(all.minimum(), 2.0);
    EXPECT_EQ(all.maximum(), 9.0);
}

TEST(StatisticsTest, ALargeMeanTakesNoDigitsFromTheDeviation) {
    const Statistics all = of({1e9 + 4, 1e9 + 7, 1e9 + 13, 1e9 + 16});
    EXPECT_DOUBLE_EQ(all.mean(), 1e9 + 10);
    EXPECT_DOUBLE_EQ(all.deviation(), std::sqrt(30.0));
}

TEST(StatisticsTest, OneNumberHasNoDeviationAndNoneHasNothing) {
    const Statistics one = of({-3});
    EXPECT_EQ(one.count(), 1);
    EXPECT_EQ(one.mean(), -3.0);
    EXPECT_TRUE(std::isnan(one.deviation()));
    EXPECT_EQ(one.minimum(), -3.0);
    EXPECT_EQ(one.maximum(), -3.0);
    EXPECT_EQ(of({gap}).count(), 0);
    EXPECT_TRUE(std::isnan(of({gap}).mean()));
}

} // namespace
} // namespace orv
